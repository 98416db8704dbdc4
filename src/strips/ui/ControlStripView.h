#pragma once

#include "strips/LampControlStrip.h"
#include "strips/ui/StripDrag.h"
#include "strips/ui/StripWidgets.h"

#include <QPointer>
#include <QPropertyAnimation>
#include <QWidget>

#include <array>

namespace lumeroom {

class ColourPickerPopover;
class PickVeil;

/// One strip in the layout of a theme. The user moves it by its handle.
class ControlStripView : public QWidget, public LampControlStripView {
    Q_OBJECT
    Q_CLASSINFO("role", "Grouping")

public:
    /// `theme` is one that exists.
    ControlStripView(
        LampControlStrip& strip, int theme, ColourPickerPopover& picker, QWidget* parent = nullptr);

    Size size() const override;
    Size naturalSize() const override;
    void setWidth(float width) override;
    /// While the row glides, the place that it glides to.
    Point origin() const override;
    void setOrigin(Point origin, bool gliding) override;
    void setShown(bool shown) override;
    bool isBeingDragged() const override { return m_drag.isOn(); }
    bool isInUse() const override;
    bool hitTest(Point point) const override;
    void showReNamePopover(const std::string& name) override;
    void popUpEffectMenu(const std::vector<EffectMenuItem>& menu) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void nameControls();
    void showState();
    void followSelection();
    void demandTools(bool demanded);
    void moveOnePlace(Qt::Key arrow);
    int glideMilliseconds() const;
    bool glides() const { return m_glide.state() == QAbstractAnimation::Running; }

    LampControlStrip& m_strip;
    StripWidgets m_widgets;
    StripDrag m_drag;
    int m_cornerRadius;
    QSize m_naturalSize;
    PickVeil* m_pickVeil = nullptr; ///< made when lamps are picked
    QPropertyAnimation m_glide;
    bool m_placed = false;
    std::optional<StripState> m_shownState;
    QPointer<QWidget> m_popover; ///< or menu
    std::array<Subscription, 3> m_subscriptions;
};

} // namespace lumeroom
