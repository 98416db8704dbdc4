#pragma once

#include "strips/ui/StripWidgets.h"

#include <QSize>

class QLayout;

namespace lumeroom {

/// The measures of a row; the sliders share what is left of its width.
struct RowMeasures {
    QSize size; ///< with half of the gap to the next card all around
    int name = 0;
    int handle = 0;
    int onOffButton = 0;
    int button = 0;
    int buttonIcon = 0;
    int well = 0;
    int gap = 0;
    int caption = 0; ///< beside the name; else it is under it
};

void layOutInOneRow(QWidget& row, const StripWidgets& widgets, const RowMeasures& measures);

// For every layout
/// Gives the small buttons one size.
void setButtonSize(const StripWidgets& widgets, int side, int picture);
void showNameInBold(const StripWidgets& widgets);
/// The handle, in whose place the selection box shows while lamps are picked.
QLayout* handleOrBox(const StripWidgets& widgets, QSize size);

} // namespace lumeroom
