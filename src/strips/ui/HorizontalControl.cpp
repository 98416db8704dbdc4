#include "strips/ui/StripLayouts.h"

#include "strips/ui/RowLayout.h"

namespace lumeroom {

void layOutHorizontalControl(QWidget& row, const StripWidgets& widgets)
{
    layOutInOneRow(row, widgets,
        {.size = {820, 56},
            .name = 128,
            .handle = 18,
            .onOffButton = 46,
            .badge = 20,
            .button = 28,
            .buttonIcon = 18,
            .well = 32,
            .gap = 6});
}

} // namespace lumeroom
