#include "app/ui/SettingsWindow.h"

#include "app/ui/BringToFront.h"
#include "app/ui/SettingEditors.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr int kMinimumWidth = 560;
constexpr int kRowSpacing = 16;

std::vector<std::string_view> pagesInOrder()
{
    std::vector<std::string_view> pages;
    for (const Setting& setting : allSettings()) {
        if (std::find(pages.begin(), pages.end(), setting.page) == pages.end())
            pages.push_back(setting.page);
    }
    return pages;
}

} // namespace

SettingsWindow::SettingsWindow(UserDefaults& defaults, RunLoop& runLoop)
    : m_defaults(defaults)
    , m_runLoop(runLoop)
    , m_pages(new QTabWidget(this))
{
    setWindowTitle(tr("Settings"));
    setMinimumWidth(kMinimumWidth);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_pages);
    for (const std::string_view page : pagesInOrder())
        m_pages->addTab(makePage(page), settingText(page));

    auto* buttons = new QDialogButtonBox(this);
    auto* close = buttons->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
    close->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this,
        [this] { reject(); });
    column->addWidget(buttons);
}

QWidget* SettingsWindow::makePage(std::string_view page)
{
    auto* widget = new QWidget(m_pages);
    auto* form = new QFormLayout;
    form->setVerticalSpacing(kRowSpacing);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const Setting& setting : allSettings()) {
        if (setting.page != page)
            continue;
        addRow(*form, *SettingEditor::make(setting, m_defaults, m_runLoop, widget));
    }
    auto* restore = new QPushButton(tr("&Restore defaults"), widget);
    restore->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, this, [this, page] { askAndRestore(page); });
    auto* column = new QVBoxLayout(widget);
    column->addLayout(form);
    column->addStretch();
    column->addWidget(restore, 0, Qt::AlignRight);
    return widget;
}

void SettingsWindow::addRow(QFormLayout& form, SettingEditor& editor)
{
    if (editor.setting().kind == Setting::Kind::Switch) {
        form.addRow(QString(), &editor); // a switch carries its own label
        return;
    }
    auto* label = new QLabel(settingText(editor.setting().label), this);
    label->setBuddy(editor.control());
    form.addRow(label, &editor);
}

void SettingsWindow::askAndRestore(std::string_view page)
{
    const auto answer = QMessageBox::question(this, tr("Restore defaults"),
        tr("Reset every setting on this page to its default?"),
        QMessageBox::RestoreDefaults | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer == QMessageBox::RestoreDefaults)
        restoreDefaults(page, m_defaults);
}

void SettingsWindow::makeKeyAndFront()
{
    bringToFront(*this);
}

void SettingsWindow::showSetting(std::string_view name)
{
    auto* control = findChild<QWidget*>(settingText(name));
    for (int page = 0; control && page < m_pages->count(); ++page) {
        if (m_pages->widget(page)->isAncestorOf(control))
            m_pages->setCurrentIndex(page);
    }
    makeKeyAndFront();
    if (control)
        control->setFocus();
}

} // namespace lumeroom
