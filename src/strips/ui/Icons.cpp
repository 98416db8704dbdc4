#include "strips/ui/Icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

// A resource of a static library has to be asked for, from outside any namespace.
static void initIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace lumeroom {

namespace {

QString fileOf(Icon which)
{
    switch (which) {
    case Icon::LightStrip:
        return QStringLiteral("light-strip");
    case Icon::LightGroup:
        return QStringLiteral("group");
    case Icon::RoomGroup:
        return QStringLiteral("room");
    case Icon::NavBack:
        return QStringLiteral("back");
    case Icon::NavForward:
        return QStringLiteral("forward");
    case Icon::AllOn:
        return QStringLiteral("all-on");
    case Icon::AllOff:
        return QStringLiteral("all-off");
    case Icon::Add:
        return QStringLiteral("add");
    case Icon::Rename:
        return QStringLiteral("rename");
    case Icon::Edit:
        return QStringLiteral("edit");
    case Icon::Delete:
        return QStringLiteral("delete");
    case Icon::Check:
        return QStringLiteral("check");
    case Icon::Search:
        return QStringLiteral("search");
    case Icon::Close:
        return QStringLiteral("close");
    case Icon::Sun:
        return QStringLiteral("sun");
    case Icon::Hue:
        return QStringLiteral("hue");
    case Icon::Drop:
        return QStringLiteral("drop");
    case Icon::Thermometer:
        return QStringLiteral("thermometer");
    case Icon::Effect:
        return QStringLiteral("swirl");
    case Icon::Handle:
        return QStringLiteral("handle");
    case Icon::LayoutUpright:
        return QStringLiteral("layout-upright");
    case Icon::LayoutRows:
        return QStringLiteral("layout-rows");
    case Icon::LayoutGrid:
        return QStringLiteral("layout-grid");
    case Icon::LayoutSlimRows:
        return QStringLiteral("layout-slim");
    }
    return {};
}

/// Draws a stencil in one colour of the palette, afresh for each size.
class TintedStencil : public QIconEngine {
public:
    TintedStencil(QString file, const QPalette& palette)
        : m_file(std::move(file))
        , m_palette(palette)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state));
    }

    /// `size` is in pixels of the screen.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor colour = colourFor(mode);
        const QString key = QStringLiteral("%1 %2x%3 %4")
                                .arg(m_file)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(colour.rgba());
        QPixmap picture;
        if (QPixmapCache::find(key, &picture))
            return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QSvgRenderer stencil(QStringLiteral(":/icons/%1.svg").arg(m_file));
        stencil.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter painter(&picture);
        stencil.render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), colour);
        painter.end();
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QIconEngine* clone() const override { return std::make_unique<TintedStencil>(*this).release(); }

private:
    QColor colourFor(QIcon::Mode mode) const
    {
        if (mode == QIcon::Selected)
            return m_palette.color(QPalette::Active, QPalette::HighlightedText);
        return m_palette.color(
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active, QPalette::WindowText);
    }

    QString m_file;
    QPalette m_palette;
};

} // namespace

QIcon icon(Icon which, const QPalette& palette)
{
    initIcons();
    // The icon owns its engine.
    return QIcon(std::make_unique<TintedStencil>(fileOf(which), palette).release());
}

} // namespace lumeroom
