#include "strips/ui/BadgeView.h"

#include "strips/ui/Icons.h"
#include "strips/ui/Mirror.h"

#include <QPainter>

namespace lumeroom {

namespace {

QIcon pictureOf(BadgeModel::Image image, const QPalette& palette)
{
    switch (image) {
    case BadgeModel::Image::LightStrip:
        return icon(Icon::LightStrip, palette);
    case BadgeModel::Image::LightGroup:
        return icon(Icon::LightGroup, palette);
    case BadgeModel::Image::RoomGroup:
        return icon(Icon::RoomGroup, palette);
    case BadgeModel::Image::None:
        break;
    }
    return {};
}

} // namespace

BadgeView::BadgeView(BadgeModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    setAccessibleName(tr("kind"));
    followModel(m_model, this, &BadgeView::mirror);
}

void BadgeView::mirror()
{
    mirrorControl(*this, m_model);
    update();
}

void BadgeView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    pictureOf(m_model.image(), palette()).paint(&painter, rect());
}

} // namespace lumeroom
