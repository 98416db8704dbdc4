#include "strips/ui/ScrollIntoSight.h"

#include "strips/LampControlStripOwner.h"

#include <QScrollArea>

#include <algorithm>

namespace lumeroom {

void scrollIntoSight(const LampControlStripView& row, QScrollArea& area)
{
    const QSize room = area.viewport()->size();
    const Point origin = row.origin();
    // Of a row that is larger than the room, the beginning counts.
    const int halfWidth = std::min(static_cast<int>(row.size().width), room.width()) / 2;
    const int halfHeight = std::min(static_cast<int>(row.size().height), room.height()) / 2;
    area.ensureVisible(static_cast<int>(origin.x) + halfWidth,
        static_cast<int>(origin.y) + halfHeight, halfWidth, halfHeight);
}

} // namespace lumeroom
