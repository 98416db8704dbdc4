#pragma once

#include "app/ui/SettingEditors.h"

class QLabel;
class QPlainTextEdit;

namespace lumeroom {

/// A list of addresses, with a line that says what is made of it. What is typed acts after a pause,
/// or when the field is left: half an address is another one, which must not be spoken to.
class AddressesEditor : public SettingEditor {
    Q_OBJECT

public:
    AddressesEditor(
        const Setting& setting, UserDefaults& defaults, RunLoop& runLoop, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showValue() override;
    void hideEvent(QHideEvent* event) override;

private:
    void textChanged();
    void commit();

    RunLoop& m_runLoop;
    QPlainTextEdit* m_field;
    QLabel* m_summary;
    Timer m_pause;
};

} // namespace lumeroom
