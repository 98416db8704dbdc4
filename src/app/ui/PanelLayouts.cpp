#include "app/ui/PanelLayouts.h"

#include <QObject>

namespace lumeroom {

std::array<PanelLayout, theme::kCount> panelLayouts()
{
    return {{
        {theme::kSingleControl, Icon::LayoutUpright, QObject::tr("&Upright strips")},
        {theme::kHorizontalControl, Icon::LayoutRows, QObject::tr("&Rows")},
        {theme::kSquareControl, Icon::LayoutGrid, QObject::tr("&Grid")},
        {theme::kThinControl, Icon::LayoutSlimRows, QObject::tr("&Slim rows")},
    }};
}

} // namespace lumeroom
