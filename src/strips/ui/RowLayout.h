#pragma once

#include "strips/ui/StripWidgets.h"

#include <QSize>

namespace lumeroom {

/// The measures of a row; the sliders share what is left of its width.
struct RowMeasures {
    QSize size;
    int name = 0;
    int handle = 0;
    int onOffButton = 0;
    int badge = 0;
    int button = 0;
    int buttonIcon = 0;
    int well = 0;
    int gap = 0;
};

void layOutInOneRow(QWidget& row, const StripWidgets& widgets, const RowMeasures& measures);

/// Gives the small buttons one size.
void setButtonSize(const StripWidgets& widgets, int side, int picture);

void showNameInBold(const StripWidgets& widgets);

} // namespace lumeroom
