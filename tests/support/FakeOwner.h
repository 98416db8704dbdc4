#pragma once

#include "strips/LampControlStrip.h"

#include <fmt/format.h>

namespace lumeroom::test {

/// Keeps what strips ask for and tell.
class FakeOwner : public LampControlStripOwner {
public:
    void sendSettingsToStripsInGroup(
        const StripSettings& settings, const StripTarget& group) override
    {
        std::string line = "strips of " + group.id;
        for (const auto& [key, value] : settings.toDictionary())
            line += " " + key + "=" + description(value);
        calls.push_back(line);
    }
    void stripHasMissedReports() override { calls.emplace_back("missed"); }
    void stripHasChanged() override { }
    void stripSends(
        LampControlStrip&, const ControlModel&, const std::function<void()>& send) override
    {
        send();
    }
    void colourIsUnsent(LampControlStrip&, bool) override { }
    void userHasCancelled(LampControlStrip&, const ControlModel&) override
    {
        calls.emplace_back("cancelled");
    }
    void targetWasRenamed(LampControlStrip& strip) override
    {
        calls.push_back("renamed " + strip.getID());
    }
    int runModal(const Alert& alert) override
    {
        calls.push_back("alert " + alert.title);
        return 0;
    }
    void viewDidBeginDragging() override { calls.emplace_back("begin"); }
    void changePositionOfStripBasedOnPoint(LampControlStrip& strip, Point point) override
    {
        calls.push_back("move " + strip.getID());
        points.push_back(point);
    }
    void viewDidFinishDragging() override { calls.emplace_back("finish"); }
    bool hasEffectsManager() const override { return canEditEffects; }
    void showEffectsManager() override { calls.emplace_back("effects"); }
    std::unique_ptr<StripEffect> makeEffect(const std::string& name, LampControlStrip&) override
    {
        return name == "unknown" ? nullptr : std::make_unique<Effect>(*this, name);
    }
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
    std::vector<Point> points; ///< of the moves
    bool canEditEffects = true;
    /// How many datagrams have been sent when an effect is stopped.
    std::function<std::size_t()> sent = [] { return 0; };

private:
    class Effect : public StripEffect {
    public:
        Effect(FakeOwner& owner, std::string name)
            : m_owner(owner)
            , m_name(std::move(name))
        {
        }
        void start() override { tell(true, "start " + m_name); }
        void stop() override
        {
            tell(false, fmt::format("stop {} after {} datagrams", m_name, m_owner.sent()));
        }
        bool isRunning() const override { return m_running; }

    private:
        void tell(bool running, std::string call)
        {
            m_running = running;
            m_owner.calls.push_back(std::move(call));
        }
        FakeOwner& m_owner;
        std::string m_name;
        bool m_running = false;
    };
};

} // namespace lumeroom::test
