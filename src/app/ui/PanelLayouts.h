#pragma once

#include "strips/LayoutManager.h"
#include "strips/ui/Icons.h"

#include <QString>

#include <array>

namespace lumeroom {

/// A layout of the panel as the user is offered it.
struct PanelLayout {
    int theme;
    Icon icon;
    QString title; ///< with the mark of its key in a menu
};

/// In the order of the menu.
std::array<PanelLayout, theme::kCount> panelLayouts();

} // namespace lumeroom
