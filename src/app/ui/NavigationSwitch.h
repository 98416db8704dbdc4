#pragma once

#include "app/ui/NavigationButton.h"

#include <QTimer>

namespace lumeroom {

struct NavigationModel;
class ButtonModel;

/// A row that can be on: it then lies on a ground of its own with a check mark. Two clicks, or one
/// with Ctrl, mean "only this". A click that would switch off therefore acts when no second one can
/// follow: otherwise the rows would go and come back under the hand.
class NavigationSwitch : public NavigationButton {
    Q_OBJECT

public:
    NavigationSwitch(
        NavigationModel& navigation, ButtonModel& kind, const QString& text, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void nextCheckState() override { } // it shows what the model says
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintGround(QPainter& painter, const QRectF& ground) const override;
    void paintContent(QPainter& painter) const override;
    bool looksPressed() const override { return isDown() || m_secondClick.isActive(); }

private:
    void act();
    void press();
    void mirror();

    NavigationModel& m_navigation;
    ButtonModel& m_kind;
    QTimer m_secondClick; ///< runs while one can follow on a click that switches off
    bool m_mouseActs = false;
};

} // namespace lumeroom
