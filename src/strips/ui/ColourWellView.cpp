#include "strips/ui/ColourWellView.h"

#include "strips/LightWords.h"
#include "strips/ui/ColourPickerPopover.h"
#include "strips/ui/ColourWellDrag.h"
#include "strips/ui/FocusRing.h"
#include "strips/ui/Mirror.h"
#include "strips/ui/Painting.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <cmath>

namespace lumeroom {

namespace {

constexpr int kSize = 30;

/// How far the wheel turned, in lines of the model's scrolling: a notch is as many lines as it is
/// elsewhere on this desktop, usually 3, and a touchpad gives parts of one.
float linesOf(const QWheelEvent& event)
{
    constexpr float kNotch = 120; // eighths of a degree
    constexpr float kPixelsPerLine = 10;
    const int turned = event.angleDelta().y();
    if (turned == 0)
        return static_cast<float>(event.pixelDelta().y()) / kPixelsPerLine;
    return static_cast<float>(turned * QApplication::wheelScrollLines()) / kNotch;
}

} // namespace

ColourWellView::ColourWellView(ColourWellModel& model, ColourPickerPopover& picker, QWidget* parent)
    : QAbstractButton(parent)
    , m_model(model)
    , m_picker(picker)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setMouseTracking(true);
    setAccessibleName(tr("colour well"));
    connect(this, &QAbstractButton::clicked, this, [this] { m_model.showThePopover(); });
    m_model.setPopover(this);
    m_model.setColourPicker(m_picker.picker());
    followModel(m_model, this, &ColourWellView::mirror);
}

ColourWellView::~ColourWellView()
{
    m_model.setPopover(nullptr);
    m_model.setColourPicker(nullptr);
}

void ColourWellView::mirror()
{
    mirrorControl(*this, m_model);
    const Colour& colour = m_model.colour();
    const auto kelvin = usableKelvin(colour);
    const QString shade = isWhite(colour) && kelvin
        ? tr("white, %1 kelvin").arg(*kelvin)
        : tr("hue %1 degrees, saturation %2 percent")
              .arg(std::lround(colour.hue * 360) % 360)
              .arg(std::lround(colour.saturation * 100));
    setAccessibleDescription(
        tr("%1, brightness %2 percent").arg(shade).arg(std::lround(colour.brightness * 100)));
    if (m_model.toolTip().empty())
        setToolTip(tr("Choose a colour; scroll to dim"));
    update();
}

QSize ColourWellView::sizeHint() const
{
    return {kSize, kSize};
}

void ColourWellView::setProminence(double prominence)
{
    m_prominence = prominence;
    update();
}

bool ColourWellView::isInUse() const
{
    return m_dragged || m_picker.isShownAt(*this);
}

void ColourWellView::showAtWell(Edge preferredEdge)
{
    m_picker.showAt(*this, preferredEdge);
}

void ColourWellView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_press = event->position().toPoint();
    m_model.mouseDown();
}

void ColourWellView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    if (rect().contains(place))
        m_pointedAt = mapToGlobal(QPoint(0, 0));
    else
        m_model.mouseExited();
    if (!m_press || (place - *m_press).manhattanLength() < QApplication::startDragDistance())
        return;
    m_model.mouseExited(); // a drag is no click
    m_dragged = true;
    const QPointer here(this);
    startDrag(*std::exchange(m_press, std::nullopt));
    if (here)
        m_dragged = false;
}

void ColourWellView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_press.reset();
    m_model.mouseUp();
}

void ColourWellView::leaveEvent(QEvent*)
{
    m_pointedAt.reset();
    m_model.mouseExited();
}

/// A turn of the wheel that scrolls the panel goes on doing so when a well comes under the mouse:
/// only where the user has pointed at the well does it dim.
void ColourWellView::wheelEvent(QWheelEvent* event)
{
    const float lines = m_pointedAt == mapToGlobal(QPoint(0, 0)) ? linesOf(*event) : 0;
    event->setAccepted(lines != 0);
    if (lines != 0)
        m_model.scrollWheel(lines);
}

/// Space clicks, as on any button.
void ColourWellView::keyPressEvent(QKeyEvent* event)
{
    constexpr float kLinesPerKey = 4;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    case Qt::Key_Up:
        m_model.scrollWheel(kLinesPerKey);
        return;
    case Qt::Key_Down:
        m_model.scrollWheel(-kLinesPerKey);
        return;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

void ColourWellView::startDrag(QPoint press)
{
    dragColourOut(m_model, *this, press);
}

void ColourWellView::dragEnterEvent(QDragEnterEvent* event)
{
    const ColourDrop offer = colourDropFrom(*event->mimeData());
    const bool known = offer.offersArchive || offer.offersColour;
    if (!known || !isEnabled() || !event->possibleActions().testFlag(Qt::CopyAction))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ColourWellView::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_model.performDragOperation(colourDropFrom(*event->mimeData())));
}

void ColourWellView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_prominence);
    const QRectF oval = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0.9F, 0.9F, 0.9F));
    painter.drawEllipse(oval);
    painter.setBrush(qColor(swatchFill(m_model.colour())));
    painter.drawEllipse(oval);
    paintGlow(painter, oval);

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgbF(0.75F, 0.75F, 0.75F), height() / 40.0));
    painter.drawEllipse(oval);
    if (showsFocusRing(*this)) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(oval);
    }
}

} // namespace lumeroom
