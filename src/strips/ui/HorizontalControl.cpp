#include "strips/ui/StripLayouts.h"

#include "strips/ui/RowLayout.h"

namespace lumeroom {

void layOutHorizontalControl(QWidget& row, const StripWidgets& widgets)
{
    showNameInBold(widgets);
    layOutInOneRow(row, widgets,
        {.size = {920, 64},
            .name = 168,
            .handle = 16,
            .onOffButton = 54,
            .button = 26,
            .buttonIcon = 16,
            .well = 30,
            .gap = 6});
}

} // namespace lumeroom
