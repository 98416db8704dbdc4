#pragma once

#include "ControllerHarness.h"

namespace lumeroom::test {

/// Three lamps; the first two in the group "Study" and the location "Home", the third a multizone
/// one; the first carries the tag "Reading".
struct Panel : Controller {
    void furnish()
    {
        addNamed(1, "Desk");
        addNamed(2, "Ceiling");
        addStrip(3, 8);
        receive(lightState(3, {.brightness = 50000, .label = "Shelf"}));
        for (unsigned n : {1U, 2U}) {
            receive(stateGrouping(kStateGroup, n, 7, "Study", 1));
            receive(stateGrouping(kStateLocation, n, 9, "Home", 1));
        }
        receive(stateTagLabels(1, 1, "Reading"));
        receive(stateTags(1, 1));
        launch();
        loop.advance(Seconds(2));
        controller.statusMenu().setBadgeLabel = [this](std::optional<int> now) { badge = now; };
    }
    FakeRow& row(const std::string& name)
    {
        for (FakeRow* candidate : panel.rows) {
            if (candidate->strip.label().text() == name)
                return *candidate;
        }
        throw std::out_of_range(name);
    }
    void showEverything()
    {
        navigation().groups.press();
        navigation().locations.press();
        navigation().tags.press();
        navigation().all.press();
    }

    std::optional<int> badge;
};

} // namespace lumeroom::test
