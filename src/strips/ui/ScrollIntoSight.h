#pragma once

class QScrollArea;

namespace lumeroom {

class LampControlStripView;

/// Scrolls to the row or, while it glides, to the place that it glides to.
void scrollIntoSight(const LampControlStripView& row, QScrollArea& area);

} // namespace lumeroom
