#pragma once

#include "FakePanel.h"
#include "app/ManualController.h"
#include "support/EngineHarness.h"

namespace lumeroom::test {

using Names = std::vector<std::string>;

/// The menu's entries as a reader sees them; "-" for a line between them.
inline Names titles(const MenuModel& menu)
{
    Names list;
    for (const auto& item : menu.items())
        list.push_back(item->isSeparator() ? "-" : item->title());
    return list;
}

/// The controller over an engine with fake sockets and a panel without a window.
struct Controller : EngineHarness {
    void launch()
    {
        controller.awakeFromNib();
        controller.applicationDidFinishLaunching();
    }
    void addNamed(unsigned n, const std::string& name)
    {
        addLamp(n, {.brightness = 50000, .label = name});
    }
    NavigationModel& navigation() { return *panel.navigation; }

    FakePanel panel;
    ManualController controller{loop, defaults, log, engine(), panel};
};

} // namespace lumeroom::test
