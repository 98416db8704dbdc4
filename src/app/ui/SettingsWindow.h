#pragma once

#include "base/UserDefaults.h"

#include <QDialog>

class QFormLayout;
class QTabWidget;

namespace lumeroom {

class SettingEditor;

/// The user defaults that a person sets, in pages. A change acts at once; one that comes from
/// elsewhere shows.
class SettingsWindow : public QDialog {
    Q_OBJECT

public:
    SettingsWindow(UserDefaults& defaults, RunLoop& runLoop);

    void makeKeyAndFront();

private:
    QWidget* makePage(std::string_view page);
    void addRow(QFormLayout& form, SettingEditor& editor);
    void askAndRestore(std::string_view page);
    void refresh();

    UserDefaults& m_defaults;
    RunLoop& m_runLoop;
    QTabWidget* m_pages;
    std::vector<SettingEditor*> m_editors;
    DefaultsObservation m_observation;
};

} // namespace lumeroom
