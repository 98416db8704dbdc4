#include "strips/ui/PickVeil.h"

#include "strips/Controls.h"

#include <QMouseEvent>

namespace lumeroom {

PickVeil::PickVeil(ButtonModel& selectedButton, const QWidget& box, QWidget& row)
    : QWidget(&row)
    , m_selectedButton(selectedButton)
{
    setCursor(Qt::PointingHandCursor);
    row.installEventFilter(this);
    for (QWidget* control : row.findChildren<QWidget*>()) {
        if (control == &box || control->focusPolicy() == Qt::NoFocus)
            continue;
        m_covered.emplace_back(control, control->focusPolicy());
        control->setFocusPolicy(Qt::NoFocus);
    }
    cover();
    show();
    raise();
}

void PickVeil::lift()
{
    for (const auto& [control, policy] : m_covered)
        control->setFocusPolicy(policy);
    m_covered.clear();
    hide();
    deleteLater();
}

bool PickVeil::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        cover();
    return QWidget::eventFilter(watched, event);
}

void PickVeil::cover()
{
    setGeometry(parentWidget()->rect());
}

void PickVeil::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_selectedButton.press();
}

} // namespace lumeroom
