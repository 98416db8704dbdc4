#pragma once

#include <QWidget>

#include <vector>

namespace lumeroom {

class ButtonModel;

/// Lies over a card while lamps are picked: a click anywhere picks the lamp, or gives it back, and
/// of what is under it the keyboard reaches the check box alone.
class PickVeil : public QWidget {
    Q_OBJECT

public:
    PickVeil(ButtonModel& selectedButton, const QWidget& box, QWidget& row);
    /// Gives the card back, and goes.
    void lift();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void cover();

    ButtonModel& m_selectedButton;
    std::vector<std::pair<QWidget*, Qt::FocusPolicy>> m_covered;
};

} // namespace lumeroom
