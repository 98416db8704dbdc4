#pragma once

#include <Qt>

namespace lumeroom {

class ControlStripView;

/// The row that a row trades places with when the user presses this arrow key: the nearest one in
/// that direction or, where the rows do not lie that way, the one before or after. Null at the end.
const ControlStripView* neighbourOf(const ControlStripView& row, Qt::Key arrow);

} // namespace lumeroom
