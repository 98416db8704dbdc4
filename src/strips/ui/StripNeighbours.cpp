#include "strips/ui/StripNeighbours.h"

#include "strips/ui/ControlStripView.h"

#include <algorithm>
#include <cmath>

namespace lumeroom {

namespace {

using Rows = std::vector<const ControlStripView*>;

/// The rows that show beside this one, and itself, as one reads them.
Rows rowsAround(const ControlStripView& row)
{
    Rows rows;
    if (!row.parentWidget())
        return rows;
    for (const auto* other :
        row.parentWidget()->findChildren<ControlStripView*>(Qt::FindDirectChildrenOnly)) {
        if (!other->isHidden())
            rows.push_back(other);
    }
    std::sort(rows.begin(), rows.end(), [](const auto* a, const auto* b) {
        return std::pair(a->origin().y, a->origin().x) < std::pair(b->origin().y, b->origin().x);
    });
    return rows;
}

const ControlStripView* aboveOrBelow(const Rows& rows, const ControlStripView& row, int direction)
{
    const Point origin = row.origin();
    const ControlStripView* nearest = nullptr;
    for (const auto* other : rows) {
        const float distance = (other->origin().y - origin.y) * static_cast<float>(direction);
        if (other->origin().x != origin.x || distance <= 0)
            continue;
        if (!nearest || distance < std::abs(nearest->origin().y - origin.y))
            nearest = other;
    }
    return nearest;
}

} // namespace

const ControlStripView* neighbourOf(const ControlStripView& row, Qt::Key arrow)
{
    const int direction = arrow == Qt::Key_Up || arrow == Qt::Key_Left ? -1 : 1;
    const Rows rows = rowsAround(row);
    if (arrow == Qt::Key_Up || arrow == Qt::Key_Down) {
        if (const auto* found = aboveOrBelow(rows, row, direction))
            return found;
    }
    const auto place = std::find(rows.begin(), rows.end(), &row) - rows.begin() + direction;
    const auto count = static_cast<std::ptrdiff_t>(rows.size());
    return place >= 0 && place < count ? rows[static_cast<std::size_t>(place)] : nullptr;
}

} // namespace lumeroom
