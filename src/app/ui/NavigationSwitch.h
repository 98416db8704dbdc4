#pragma once

#include "app/ui/NavigationButton.h"

#include <QDeadlineTimer>

namespace lumeroom {

struct NavigationModel;
class ButtonModel;

/// A row that can be on: it then lies on a ground of its own with a check mark. Two clicks, or one
/// with Ctrl, mean "only this".
class NavigationSwitch : public NavigationButton {
    Q_OBJECT

public:
    NavigationSwitch(
        NavigationModel& navigation, ButtonModel& kind, const QString& text, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void nextCheckState() override { } // it shows what the model says
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintGround(QPainter& painter, const QRectF& ground) const override;
    void paintContent(QPainter& painter) const override;

private:
    void act();
    void mirror();

    NavigationModel& m_navigation;
    ButtonModel& m_kind;
    QDeadlineTimer m_secondClick{0}; ///< until then one can follow on a press here
    QDeadlineTimer m_sameClicks{0}; ///< until then a click belongs to the two before it
};

} // namespace lumeroom
