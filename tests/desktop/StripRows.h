#pragma once

#include "base/UserDefaults.h"
#include "strips/LayoutManager.h"
#include "strips/ui/ControlStripView.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

namespace lumeroom::test {

/// Keeps what the rows tell, and trades the places of two rows as the panel does.
class RowOwner : public LampControlStripOwner {
public:
    const UserDefaults& userDefaults() const override { return m_defaults; }
    void sendSettingsToStripsInGroup(const StripSettings&, const StripTarget&) override { }
    void targetWasRenamed(LampControlStrip&) override { }
    int runModal(const Alert&) override { return 0; }
    void stripHasMissedReports() override { }
    void stripHasChanged() override { }
    void viewDidBeginDragging() override { calls.emplace_back("begin"); }
    void changePositionOfStripBasedOnPoint(LampControlStrip& strip, Point point) override
    {
        calls.push_back("move " + strip.getID());
        points.push_back(point);
    }
    void viewDidFinishDragging() override { calls.emplace_back("finish"); }
    bool hasEffectsManager() const override { return true; }
    void showEffectsManager() override { calls.emplace_back("effects"); }
    std::unique_ptr<StripEffect> makeEffect(const std::string& name, LampControlStrip&) override
    {
        calls.push_back("effect " + name);
        return nullptr;
    }
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
    std::vector<Point> points; ///< of the moves

private:
    UserDefaults m_defaults;
};

/// Strips and their rows in a container, without a panel.
struct StripRows : ::testing::Test {
    LampControlStrip& addStrip(const std::string& name, int theme)
    {
        const auto number = std::to_string(strips.size() + 1);
        strips.push_back(std::make_unique<LampControlStrip>(number, StripType::Lamp, loop));
        LampControlStrip& strip = *strips.back();
        strip.setOwner(&owner);
        strip.label().setText(name);
        strip.setControlStripView(std::make_unique<ControlStripView>(strip, theme, &container));
        return strip;
    }
    static ControlStripView& rowOf(LampControlStrip& strip)
    {
        return static_cast<ControlStripView&>(*strip.getControlStripView());
    }
    /// The control with this tag.
    static QWidget* tagged(const QWidget& row, int tag)
    {
        for (auto* child : row.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (child->property("tag").toInt() == tag)
                return child;
        }
        return nullptr;
    }

    ManualRunLoop loop;
    RowOwner owner;
    QWidget container;
    std::vector<std::unique_ptr<LampControlStrip>> strips; ///< go before the container
};

} // namespace lumeroom::test
