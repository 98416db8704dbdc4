#include "strips/ui/ColourPickerPopover.h"

#include "engine/LampUnits.h"
#include "strips/ColourConversions.h"
#include "strips/ui/CircularSliderView.h"
#include "strips/ui/FadeIn.h"
#include "strips/ui/SliderView.h"

#include <QApplication>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <cmath>

namespace lumeroom {

namespace {

constexpr float kLevels = kMostLevel;
constexpr int kGap = 6; // between well and popover

/// The top left corner of a popover of this size.
QPoint placeBeside(const QRect& well, QSize size, const QRect& screen, ColourWellPopover::Edge edge)
{
    const bool roomBeside = well.right() + kGap + size.width() <= screen.right();
    const bool roomBelow = well.bottom() + kGap + size.height() <= screen.bottom();
    QPoint place = well.center() - QPoint(size.width() / 2, size.height() / 2);
    if (edge == ColourWellPopover::Edge::Right && roomBeside)
        place.setX(well.right() + kGap);
    else if (roomBelow)
        place.setY(well.bottom() + kGap);
    else
        place.setY(well.top() - kGap - size.height());
    const QPoint most = screen.bottomRight() - QPoint(size.width() - 1, size.height() - 1);
    return {std::max(std::min(place.x(), most.x()), screen.left()),
        std::max(std::min(place.y(), most.y()), screen.top())};
}

} // namespace

ColourPickerPopover::ColourPickerPopover()
    : PopoverFrame(nullptr, Qt::Popup)
    , m_brightness(0, kLevels)
{
    setAccessibleName(tr("colour picker"));
    auto* modes = new QHBoxLayout;
    modes->setSpacing(0);
    m_whites = addMode(tr("Whites"), ZTColourPicker::Control::Whites);
    m_colours = addMode(tr("Colours"), ZTColourPicker::Control::Colours);
    auto* group = new QButtonGroup(this); // one of them is always pressed
    for (QAbstractButton* button : {m_whites, m_colours}) {
        group->addButton(button);
        modes->addWidget(button);
    }
    m_wheel = new CircularSliderView(m_picker->mainSlider(), this);
    m_brightness.setTarget(this);
    m_brightnessView = new SliderView(
        m_brightness,
        [this](const Rectangle& inside, bool dark) {
            return brightnessSliderBar(inside, lightOf(m_picker->shownColour()), dark);
        },
        tr("brightness"), this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    column->addLayout(modes);
    column->addWidget(m_wheel, 0, Qt::AlignHCenter);
    column->addWidget(m_brightnessView);
    m_picker->onChange = [this] { mirror(); };
    mirror();
}

ColourPickerPopover::~ColourPickerPopover()
{
    m_picker->onChange = nullptr; // the wells still hold the picker
}

QAbstractButton* ColourPickerPopover::addMode(const QString& title, ZTColourPicker::Control control)
{
    auto* button = new QPushButton(title, this);
    button->setCheckable(true);
    button->setAutoDefault(false);
    connect(button, &QAbstractButton::clicked, this,
        [this, control] { m_picker->handleControl(control); });
    return button;
}

void ColourPickerPopover::handleControl(const ControlModel&)
{
    m_picker->moveBrightnessTo(m_brightness.value() / kLevels);
}

void ColourPickerPopover::mirror()
{
    (m_picker->isPickingWhites() ? m_whites : m_colours)->setChecked(true);
    showMode();
    m_brightness.setValue(m_picker->brightness() * kLevels);
    describeWheel();
    m_wheel->update();
    m_brightnessView->update(); // which has the wheel's colour
}

/// In the accent colour: on a dark ground a pressed button hardly differs from the other.
void ColourPickerPopover::showMode()
{
    for (QAbstractButton* button : {m_whites, m_colours}) {
        QPalette shades = palette();
        if (button->isChecked()) {
            shades.setBrush(QPalette::Button, shades.highlight());
            shades.setBrush(QPalette::ButtonText, shades.highlightedText());
        }
        button->setPalette(shades);
    }
}

void ColourPickerPopover::describeWheel()
{
    const SSCircularSlider& slider = m_picker->mainSlider();
    if (slider.getWhites()) {
        const int kelvin = kelvinFromKnob(slider.getXOffsetAndYOffset().x);
        m_wheel->setAccessibleName(tr("white"));
        m_wheel->setAccessibleDescription(tr("%1 kelvin").arg(kelvin));
        return;
    }
    const auto [degrees, distance] = slider.getAngleAndDistance();
    const Colour colour = colourFromKnob({degrees, distance}, 1);
    m_wheel->setAccessibleName(tr("colour"));
    m_wheel->setAccessibleDescription(tr("hue %1 degrees, saturation %2 percent")
                                          .arg(std::lround(colour.hue * 360) % 360)
                                          .arg(std::lround(colour.saturation * 100)));
}

void ColourPickerPopover::showAt(QWidget& well, ColourWellPopover::Edge preferredEdge)
{
    m_well = &well;
    m_wellOnScreen = QRect(well.mapToGlobal(QPoint(0, 0)), well.size());
    adjustSize();
    const QRect screen = well.screen()->availableGeometry();
    setGeometry(QRect(placeBeside(m_wellOnScreen, size(), screen, preferredEdge), size()));
    winId(); // makes the window, which a desktop places only beside another one
    windowHandle()->setTransientParent(well.window()->windowHandle());
    disconnect(m_wellGone);
    m_wellGone = connect(&well, &QObject::destroyed, this, &QWidget::close);
    show();
    fadeIn(*this);
    m_wheel->setFocus(Qt::PopupFocusReason);
}

/// Escape takes back what was picked, and closes any popup.
void ColourPickerPopover::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        m_picker->cancel();
    PopoverFrame::keyPressEvent(event);
}

/// A press on the well closes its open popover and does not open it again; any other press outside
/// closes it and then has its usual effect.
void ColourPickerPopover::mousePressEvent(QMouseEvent* event)
{
    setAttribute(Qt::WA_NoMouseReplay, m_wellOnScreen.contains(event->globalPosition().toPoint()));
    PopoverFrame::mousePressEvent(event);
}

void ColourPickerPopover::changeEvent(QEvent* event)
{
    PopoverFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showMode();
}

} // namespace lumeroom
