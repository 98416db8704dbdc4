#pragma once

#include "base/Log.h"
#include "base/UserDefaults.h"
#include "strips/LayoutManager.h"
#include "strips/ui/ColourPickerPopover.h"
#include "strips/ui/ControlStripView.h"
#include "support/FakeOwner.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

/// Strips and their rows in a container, without a panel.
struct StripRows : ::testing::Test {
    LampControlStrip& addStrip(const std::string& name, int theme)
    {
        const auto number = std::to_string(strips.size() + 1);
        strips.push_back(std::make_unique<LampControlStrip>(number, StripType::Lamp, surroundings));
        LampControlStrip& strip = *strips.back();
        strip.label().setText(name);
        strip.setControlStripView(
            std::make_unique<ControlStripView>(strip, theme, picker, &container));
        return strip;
    }
    static ControlStripView& rowOf(LampControlStrip& strip)
    {
        return static_cast<ControlStripView&>(*strip.getControlStripView());
    }
    /// The control with this tag.
    static QWidget* tagged(const QWidget& row, int tag)
    {
        for (auto* child : row.findChildren<QWidget*>()) {
            if (child->property("tag").toInt() == tag)
                return child;
        }
        return nullptr;
    }

    ManualRunLoop loop;
    UserDefaults defaults;
    Log log;
    FakeOwner owner;
    StripSurroundings surroundings{loop, defaults, log, owner};
    ColourPickerPopover picker;
    QWidget container;
    std::vector<std::unique_ptr<LampControlStrip>> strips; ///< go before the container
};

} // namespace lumeroom::test
