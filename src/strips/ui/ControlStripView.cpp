#include "strips/ui/ControlStripView.h"

#include "strips/LayoutManager.h"
#include "strips/ui/CaptionView.h"
#include "strips/ui/CardLook.h"
#include "strips/ui/ColourWellView.h"
#include "strips/ui/DragHandle.h"
#include "strips/ui/EdgeScroller.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/FadeIn.h"
#include "strips/ui/IconButton.h"
#include "strips/ui/MenuEntry.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/PickVeil.h"
#include "strips/ui/RenamePopover.h"
#include "strips/ui/ScrollIntoSight.h"
#include "strips/ui/SelectionBox.h"
#include "strips/ui/SliderView.h"
#include "strips/ui/StripLayouts.h"
#include "strips/ui/StripNeighbours.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>

namespace lumeroom {

namespace {

void layOut(int theme, QWidget& row, const StripWidgets& widgets)
{
    switch (theme) {
    case theme::kSingleControl:
        return layOutSingleControl(row, widgets);
    case theme::kSquareControl:
        return layOutSquareControl(row, widgets);
    case theme::kThinControl:
        return layOutThinControl(row, widgets);
    default:
        return layOutHorizontalControl(row, widgets);
    }
}

} // namespace

ControlStripView::ControlStripView(
    LampControlStrip& strip, int theme, ColourPickerPopover& picker, QWidget* parent)
    : QWidget(parent)
    , m_strip(strip)
    , m_widgets(strip, picker, this)
    , m_drag(strip, *this, *m_widgets.handle)
    , m_cornerRadius(theme == theme::kThinControl ? 8 : 12)
    , m_glide(this, "pos")
{
    layOut(theme, *this, m_widgets);
    m_glide.setEasingCurve(QEasingCurve::OutCubic);
    connect(m_widgets.handle, &DragHandle::arrowPressed, this, &ControlStripView::moveOnePlace);
    connect(m_widgets.label, &ElidedLabel::nameChanged, this, &ControlStripView::nameControls);
    m_naturalSize = QWidget::size();
    m_subscriptions = {strip.caption().listen([this] { showState(); }),
        strip.getSelectedButton().listen([this] { followSelection(); }),
        strip.colourWell().listen([this] { m_widgets.brightness->update(); })};
    nameControls();
    showState();
    followSelection();
}

/// Each control is announced with its lamp: "Desk lamp, brightness".
void ControlStripView::nameControls()
{
    const QString lamp = QString::fromStdString(m_strip.label().shownText());
    setAccessibleName(lamp);
    for (QWidget* child : findChildren<QWidget*>()) {
        if (child == m_widgets.label || child == m_widgets.caption
            || child->accessibleName().isEmpty())
            continue;
        const QVariant known = child->property("role");
        const QString role = known.isValid() ? known.toString() : child->accessibleName();
        child->setProperty("role", role);
        child->setAccessibleName(lamp.isEmpty() ? role : lamp + QStringLiteral(", ") + role);
    }
}

/// What is off or out of reach steps back.
void ControlStripView::showState()
{
    const StripState state = m_strip.state();
    if (std::exchange(m_shownState, state) == state)
        return;
    const double prominence = prominenceOf(state);
    for (SliderView* slider : m_widgets.sliders())
        slider->setProminence(prominence);
    m_widgets.well->setProminence(prominence);
    m_widgets.onOffButton->setCertain(state == StripState::On || state == StripState::Off);
    m_widgets.label->setSoft(state != StripState::On);
}

/// While lamps are picked, the whole card is one big check box.
void ControlStripView::followSelection()
{
    const bool picking = !m_strip.getSelectedButton().isHidden();
    m_widgets.handle->setHidden(picking);
    if (picking && !m_pickVeil)
        m_pickVeil = new PickVeil(m_strip.getSelectedButton(), *m_widgets.selected, *this);
    else if (!picking && m_pickVeil)
        std::exchange(m_pickVeil, nullptr)->lift();
    demandTools(!picking && underMouse());
    setFocusProxy(picking ? m_widgets.selected : nullptr);
    update();
}

void ControlStripView::demandTools(bool demanded)
{
    m_widgets.rename->setDemanded(demanded);
    m_widgets.effect->setDemanded(demanded);
}

void ControlStripView::enterEvent(QEnterEvent*)
{
    demandTools(!m_pickVeil);
}

void ControlStripView::leaveEvent(QEvent*)
{
    demandTools(false);
}

Size ControlStripView::naturalSize() const
{
    return {static_cast<float>(m_naturalSize.width()), static_cast<float>(m_naturalSize.height())};
}

void ControlStripView::setWidth(float width)
{
    resize(static_cast<int>(width), height());
}

Size ControlStripView::size() const
{
    return {static_cast<float>(width()), static_cast<float>(height())};
}

Point ControlStripView::origin() const
{
    const QPoint place = glides() ? m_glide.endValue().toPoint() : pos();
    return {static_cast<float>(place.x()), static_cast<float>(place.y())};
}

void ControlStripView::setOrigin(Point origin, bool gliding)
{
    const QPoint place(static_cast<int>(origin.x), static_cast<int>(origin.y));
    if (glides() && m_glide.endValue().toPoint() == place)
        return;
    m_glide.stop();
    const bool comesIntoSight = !std::exchange(m_placed, true) || !isVisible();
    if (!gliding || comesIntoSight || isBeingDragged() || glideMilliseconds() == 0) {
        move(place);
    } else if (place != pos()) {
        m_glide.setDuration(glideMilliseconds());
        m_glide.setStartValue(pos());
        m_glide.setEndValue(place);
        m_glide.start();
    }
}

/// 0 on a desktop whose user wants no motion.
int ControlStripView::glideMilliseconds() const
{
    return style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
}

void ControlStripView::setShown(bool shown)
{
    // Qt would hand the keyboard on to the next row, and scroll there.
    QWidget* focus = window()->focusWidget();
    if (!shown && focus && isAncestorOf(focus))
        focus->clearFocus();
    setVisible(shown);
}

bool ControlStripView::isInUse() const
{
    const auto sliders = m_widgets.sliders();
    return m_popover || isBeingDragged() || m_widgets.well->isInUse()
        || std::any_of(sliders.begin(), sliders.end(),
            [](const SliderView* slider) { return slider->isSliderDown(); });
}

// Rows that still glide out of the way of a dragged one no longer lie under it.
bool ControlStripView::hitTest(Point point) const
{
    const Point o = origin();
    return !isHidden() && point.x >= o.x && point.x < o.x + size().width && point.y >= o.y
        && point.y < o.y + size().height;
}

/// The way of the keyboard: as if the row had been dragged onto its neighbour.
void ControlStripView::moveOnePlace(Qt::Key arrow)
{
    const ControlStripView* neighbour = neighbourOf(*this, arrow);
    if (!neighbour || isBeingDragged())
        return;
    const Point origin = neighbour->origin();
    const Size size = neighbour->size();
    m_strip.viewDidBeginDragging();
    raise();
    m_strip.viewDidMoveTo({origin.x + size.width / 2, origin.y + size.height / 2});
    m_strip.viewDidFinishDragging();
    if (QScrollArea* area = areaAround(*this))
        scrollIntoSight(*this, *area);
}

void ControlStripView::popUpEffectMenu(const std::vector<EffectMenuItem>& menu)
{
    auto* popUp = new QMenu(this);
    m_popover = popUp;
    popUp->setAttribute(Qt::WA_DeleteOnClose);
    for (const EffectMenuItem& item : menu) {
        if (item.kind == EffectMenuItem::Kind::Separator) {
            popUp->addSeparator();
            continue;
        }
        // Later, when the menu is gone: what is chosen may rebuild the panel.
        QAction* action = popUp->addAction(menuTitle(item.title));
        action->setEnabled(item.enabled);
        connect(
            action, &QAction::triggered, this, [this, item] { m_strip.chooseFromEffectMenu(item); },
            Qt::QueuedConnection);
    }
    popUp->popup(m_widgets.effect->mapToGlobal(QPoint(0, m_widgets.effect->height())));
}

void ControlStripView::showReNamePopover(const std::string& name)
{
    m_popover = new RenamePopover(
        QString::fromStdString(name),
        [this](const QString& text) { m_strip.popoverShouldClose(text.toStdString()); }, this);
    m_popover->adjustSize();
    const QRect room = screen()->availableGeometry();
    const QPoint below = m_widgets.label->mapToGlobal(QPoint(0, m_widgets.label->height()));
    m_popover->move(std::max(room.left(), std::min(below.x(), room.right() - m_popover->width())),
        std::max(room.top(), std::min(below.y(), room.bottom() - m_popover->height())));
    m_popover->show();
    fadeIn(*m_popover);
    m_popover->setFocus();
}

void ControlStripView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool picked = m_pickVeil && m_strip.isSelected();
    paintCard(painter, *this, m_cornerRadius,
        isBeingDragged() || picked); // a dragged one lies over other rows
}

void ControlStripView::mousePressEvent(QMouseEvent* event)
{
    m_drag.mouseDown(*event);
}

void ControlStripView::mouseMoveEvent(QMouseEvent* event)
{
    m_drag.mouseDragged(*event);
    if (isBeingDragged())
        m_glide.stop(); // the hand has it now
}

void ControlStripView::mouseReleaseEvent(QMouseEvent* event)
{
    m_drag.mouseUp(*event);
}

void ControlStripView::hideEvent(QHideEvent* event)
{
    const bool wasDragged = m_drag.isOn();
    m_drag.abandon();
    if (wasDragged) {
        // Later: what finishes a drag places the rows anew, and this one is just going.
        QMetaObject::invokeMethod(
            this, [this] { m_strip.viewDidFinishDragging(); }, Qt::QueuedConnection);
    }
    if (glides()) {
        m_glide.stop();
        move(m_glide.endValue().toPoint());
    }
    QWidget::hideEvent(event);
}

} // namespace lumeroom
