#pragma once

#include <QDialog>

#include <string_view>

class QFormLayout;
class QTabWidget;

namespace lumeroom {

class RunLoop;
class SettingEditor;
class UserDefaults;

/// The user defaults that a person sets, in pages. A change acts at once; one that comes from
/// elsewhere shows.
class SettingsWindow : public QDialog {
    Q_OBJECT

public:
    SettingsWindow(UserDefaults& defaults, RunLoop& runLoop);

    void makeKeyAndFront();
    /// Opens on the control of this setting, by its name in the defaults.
    void showSetting(std::string_view name);

private:
    QWidget* makePage(std::string_view page);
    void addRow(QFormLayout& form, SettingEditor& editor);
    void askAndRestore(std::string_view page);

    UserDefaults& m_defaults;
    RunLoop& m_runLoop;
    QTabWidget* m_pages;
};

} // namespace lumeroom
