#include "app/ui/AlertBox.h"

#include "engine/QVLIFXEngineDelegate.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace lumeroom {

int runAlertBox(const Alert& alert, QWidget* parent)
{
    QMessageBox box(parent);
    box.setWindowTitle(QCoreApplication::applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(alert.title));
    box.setInformativeText(QString::fromStdString(alert.text));
    std::vector<QAbstractButton*> buttons;
    for (const std::string& title : alert.buttons)
        buttons.push_back(box.addButton(QString::fromStdString(title), QMessageBox::AcceptRole));
    if (buttons.size() > 1) // to dismiss a question is not to agree
        box.setEscapeButton(buttons.back());
    box.exec();
    const auto pressed = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    const auto index = static_cast<int>(pressed - buttons.begin());
    return std::clamp(index, 0, std::max(0, static_cast<int>(buttons.size()) - 1));
}

} // namespace lumeroom
