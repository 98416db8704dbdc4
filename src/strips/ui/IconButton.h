#pragma once

#include "strips/ui/Icons.h"

#include <QToolButton>

namespace lumeroom {

class ButtonModel;

/// A flat button with one of the program's own pictures, in the colours of the moment.
class IconButton : public QToolButton {
    Q_OBJECT

public:
    /// `name` is what the button does, for assistive technology: "rename".
    IconButton(Icon which, const QString& name, QWidget* parent);
    /// The same, mirroring a model: a press presses the model.
    IconButton(Icon which, const QString& name, ButtonModel& model, QWidget* parent);

    /// One that shows on demand keeps its room, and its place for the keyboard.
    void showOnDemand() { m_onDemand = true; }
    void setDemanded(bool demanded);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void mirror();

    Icon m_which;
    ButtonModel* m_model = nullptr;
    bool m_onDemand = false;
    bool m_demanded = false;
};

} // namespace lumeroom
