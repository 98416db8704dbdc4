#include "strips/ui/StripLayouts.h"

#include "strips/ui/RowLayout.h"

namespace lumeroom {

void layOutThinControl(QWidget& row, const StripWidgets& widgets)
{
    layOutInOneRow(row, widgets,
        {.size = {920, 42},
            .name = 144,
            .handle = 16,
            .onOffButton = 32,
            .button = 22,
            .buttonIcon = 14,
            .well = 20,
            .gap = 6,
            .caption = 132});
}

} // namespace lumeroom
