#include "app/ui/SettingsWindow.h"
#include "app/ui/SettingEditors.h"
#include "base/DefaultsKeys.h"
#include "support/ManualRunLoop.h"
#include "support/QtTestInput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace lumeroom {

struct SettingsDialog : ::testing::Test {
    SettingsDialog()
    {
        loop.runPosted();
        window.show();
    }
    template <typename Control> Control& control(std::string_view key)
    {
        auto* found = window.findChild<Control*>(settingText(key));
        if (!found)
            throw std::out_of_range(std::string(key));
        return *found;
    }
    void setElsewhere(std::string_view key, const Value& value)
    {
        defaults.setObject(key, value);
        loop.runPosted();
    }

    ManualRunLoop loop;
    UserDefaults defaults;
    SettingsWindow window{defaults, loop};
};

TEST_F(SettingsDialog, opensOnASetting)
{
    auto& level = control<QComboBox>("verbosity");
    ASSERT_FALSE(level.isVisible());
    window.showSetting("verbosity");
    EXPECT_TRUE(level.isVisible());
    EXPECT_EQ(window.focusWidget(), &level);
    window.showSetting("manualIPAddresses");
    EXPECT_EQ(window.focusWidget(), &control<QPlainTextEdit>("manualIPAddresses"));
}

TEST_F(SettingsDialog, storesAtOnceAndShowsWhatChangesElsewhere)
{
    auto& speed = control<QDoubleSpinBox>(keys::kHeartbeatSpeed);
    speed.stepUp();
    EXPECT_EQ(*defaults.objectForKey(keys::kHeartbeatSpeed), Value(1.1));
    setElsewhere(keys::kHeartbeatSpeed, 250.0); // more than may be entered
    EXPECT_EQ(speed.value(), 250);
    setElsewhere(keys::kHeartbeatSpeed, -1.0);
    EXPECT_EQ(speed.value(), 1);
    EXPECT_EQ(*defaults.objectForKey(keys::kHeartbeatSpeed), Value(-1.0)); // showing is not storing

    auto& sends = control<QCheckBox>(keys::kGroupOnOffChangesSettings);
    sends.click();
    EXPECT_EQ(*defaults.objectForKey(keys::kGroupOnOffChangesSettings), Value(true));

    auto& counts = control<QComboBox>(keys::kGroupPowerStateBasedOn);
    setElsewhere(keys::kGroupPowerStateBasedOn, 8);
    EXPECT_EQ(counts.currentText(), "never");
    counts.setCurrentIndex(2);
    emit counts.activated(2);
    EXPECT_EQ(*defaults.objectForKey(keys::kGroupPowerStateBasedOn), Value(2));
}

TEST_F(SettingsDialog, actsOnANumberOnceItIsTyped)
{
    auto& fade = control<QDoubleSpinBox>(keys::kDefaultTransition);
    auto* field = fade.findChild<QLineEdit*>();
    field->setText("12 s");
    emit field->textEdited("12 s");
    EXPECT_EQ(defaults.get(keys::kDefaultTransition), 0.4);
    setElsewhere(keys::kVerbosity, 1); // does not take away what is typed
    EXPECT_EQ(field->text(), "12 s");
    emit field->editingFinished();
    test::key(fade, Qt::Key_Return);
    EXPECT_EQ(*defaults.objectForKey(keys::kDefaultTransition), Value(12.0));
}

TEST_F(SettingsDialog, actsOnAddressesAfterAPauseOrWhenTheyAreLeft)
{
    auto& field = control<QPlainTextEdit>(keys::kManualIPAddresses);
    const auto summary = [&] {
        const auto labels = field.parentWidget()->findChildren<QLabel*>();
        return labels.first()->text();
    };
    field.setPlainText("10.0.0.3\nlamp");
    EXPECT_EQ(summary(), "1 address; not understood: lamp");
    setElsewhere(keys::kVerbosity, 1); // a change elsewhere does not take away what is typed
    loop.advance(Seconds(0.9));
    EXPECT_EQ(defaults.get(keys::kManualIPAddresses), "");
    loop.advance(Seconds(0.2));
    EXPECT_EQ(defaults.get(keys::kManualIPAddresses), "10.0.0.3\nlamp");
    field.setPlainText("10.0.0.4");
    window.close();
    EXPECT_EQ(defaults.get(keys::kManualIPAddresses), "10.0.0.4");

    defaults.overrideDefaults({{std::string(keys::kManualIPAddresses), "127.0.0.1"}});
    loop.runPosted();
    EXPECT_FALSE(field.isEnabled()); // as long as nobody can change it
    EXPECT_EQ(field.toPlainText(), "127.0.0.1");
}

TEST_F(SettingsDialog, restoresAPageOnceConfirmed)
{
    setElsewhere(keys::kHeartbeatSpeed, 5.0);
    const auto restore = [&](QMessageBox::StandardButton answer) {
        QTimer::singleShot(0, [answer] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            box->button(answer)->click();
        });
        test::choose<QPushButton>("&Restore defaults");
        loop.runPosted();
    };
    restore(QMessageBox::Cancel);
    EXPECT_EQ(control<QDoubleSpinBox>(keys::kHeartbeatSpeed).value(), 5);
    restore(QMessageBox::RestoreDefaults);
    EXPECT_EQ(control<QDoubleSpinBox>(keys::kHeartbeatSpeed).value(), 1);
}

} // namespace lumeroom
