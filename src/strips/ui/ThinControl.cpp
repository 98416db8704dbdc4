#include "strips/ui/StripLayouts.h"

#include "strips/ui/RowLayout.h"

namespace lumeroom {

void layOutThinControl(QWidget& row, const StripWidgets& widgets)
{
    layOutInOneRow(row, widgets,
        {.size = {820, 34},
            .name = 150,
            .handle = 16,
            .onOffButton = 34,
            .badge = 16,
            .button = 24,
            .buttonIcon = 16,
            .well = 24,
            .gap = 6});
}

} // namespace lumeroom
