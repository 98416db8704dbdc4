#pragma once

#include "app/SettingsDescription.h"
#include "base/UserDefaults.h"

#include <QWidget>

namespace lumeroom {

/// The control that shows one user default, whoever changes it, and changes it.
class SettingEditor : public QWidget {
    Q_OBJECT

public:
    /// The kind that fits the setting.
    static SettingEditor* make(
        const Setting& setting, UserDefaults& defaults, RunLoop& runLoop, QWidget* parent);

    /// What the keyboard works, and a label is the buddy of.
    QWidget* control() const { return m_control; }
    const Setting& setting() const { return m_setting; }

protected:
    SettingEditor(const Setting& setting, UserDefaults& defaults, QWidget* parent);
    /// Shows what the program goes by now.
    virtual void showValue() = 0;
    UserDefaults& defaults() const { return m_defaults; }
    /// Names it for those who cannot see its label, and lays it out, with the rest below.
    void setControl(QWidget* control, QWidget* below = nullptr);

private:
    /// One that nobody can change for the time being is grey.
    void refresh();

    const Setting& m_setting;
    UserDefaults& m_defaults;
    QWidget* m_control = nullptr;
    Subscription m_subscription;
};

/// A text of the table as Qt shows it.
QString settingText(std::string_view text);
/// The same without its mnemonic.
QString withoutMnemonic(const QString& text);

} // namespace lumeroom
