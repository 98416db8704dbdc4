#include "strips/ui/ColourWellDrag.h"

#include "strips/ui/Painting.h"

#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
#include <QPropertyAnimation>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr int kSwatchSize = 15;
const auto kColourType = QStringLiteral("application/x-color");

Colour colourFrom(const QColor& colour)
{
    const QColor hsv = colour.toHsv();
    return {.hue = std::max(0.0F, hsv.hsvHueF()), // a grey has none
        .saturation = hsv.hsvSaturationF(),
        .brightness = hsv.valueF(),
        .alpha = colour.alphaF(),
        .kelvin = {}};
}

/// The swatch that nobody took goes home.
void slideBack(const QWidget& view, const QPixmap& swatch, QPoint from)
{
    constexpr int kMilliseconds = 250;
    auto* picture = new QLabel(view.window());
    picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    picture->setPixmap(swatch);
    picture->adjustSize();
    picture->move(view.mapTo(view.window(), from));
    picture->show();
    auto* slide = new QPropertyAnimation(picture, "pos", picture);
    slide->setDuration(kMilliseconds);
    slide->setEasingCurve(QEasingCurve::OutCubic);
    slide->setEndValue(view.mapTo(view.window(), view.rect().center() - picture->rect().center()));
    QObject::connect(slide, &QAbstractAnimation::finished, picture, &QObject::deleteLater);
    slide->start();
}

} // namespace

QMimeData* makeColourDragData(ColourWellModel& well)
{
    const Value::Data archive = well.archivedColour();
    auto* offer = new QMimeData;
    offer->setData(kArchivedColourType,
        QByteArray(reinterpret_cast<const char*>(archive.data()), qsizetype(archive.size())));
    offer->setData(kColourType, {}); // a well takes the archive; others get no colour from here
    return offer;
}

QPixmap colourDragPicture(const Colour& colour, double devicePixelRatio)
{
    QPixmap pixmap((QSizeF(kSwatchSize, kSwatchSize) * devicePixelRatio).toSize());
    pixmap.setDevicePixelRatio(devicePixelRatio);
    const Rgba light = lightOf(colour);
    const float level = colour.brightness;
    pixmap.fill(qColor({light.red * level, light.green * level, light.blue * level, 1}));
    return pixmap;
}

void dragColourOut(ColourWellModel& well, QWidget& view, QPoint press)
{
    auto* drag = new QDrag(&view);
    drag->setMimeData(makeColourDragData(well));
    drag->setPixmap(colourDragPicture(well.colour(), view.devicePixelRatioF()));
    const QPoint middle(kSwatchSize / 2, kSwatchSize / 2);
    drag->setHotSpot(press - view.rect().center() + middle); // it sets out from the well's centre
    const QPointer<QWidget> here = &view;
    if (drag->exec(Qt::CopyAction) == Qt::IgnoreAction && here)
        slideBack(view, drag->pixmap(), view.mapFromGlobal(QCursor::pos()) - middle);
}

ColourDrop colourDropFrom(const QMimeData& data)
{
    ColourDrop drop;
    drop.offersArchive = data.hasFormat(kArchivedColourType);
    const QByteArray bytes = data.data(kArchivedColourType);
    if (!bytes.isEmpty()) // the toolkit cannot tell no data from none to read
        drop.archivedColour.emplace(bytes.begin(), bytes.end());
    drop.offersColour = data.hasFormat(kColourType);
    const auto colour = data.colorData().value<QColor>();
    if (colour.isValid())
        drop.colour = colourFrom(colour);
    return drop;
}

} // namespace lumeroom
