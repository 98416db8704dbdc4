#pragma once

#include "strips/LampControlStrip.h"
#include "support/EngineHarness.h"

#include <fmt/format.h>

namespace lumeroom::test {

using Lines = std::vector<std::string>;

/// Keeps what the strip asks for, and counts what was on the wire when an effect was stopped.
class FakeOwner : public LampControlStripOwner {
public:
    FakeOwner(const UserDefaults& defaults, const FakeSockets& sockets)
        : m_defaults(defaults)
        , m_sockets(sockets)
    {
    }

    const UserDefaults& userDefaults() const override { return m_defaults; }
    void sendSettingsToStripsInGroup(
        const StripSettings& settings, const StripTarget& group) override
    {
        std::string line = "strips of " + group.id;
        for (const auto& [key, value] : settings.toDictionary())
            line += " " + key + "=" + description(value);
        calls.push_back(line);
    }
    void stripHasMissedReports() override { calls.emplace_back("missed"); }
    void stripHasChanged() override { ++changes; }
    void targetWasRenamed(LampControlStrip& strip) override
    {
        calls.push_back("renamed " + strip.getID());
    }
    int runModal(const Alert& alert) override
    {
        calls.push_back("alert " + alert.title);
        return 0;
    }
    void viewDidBeginDragging() override { }
    void changePositionOfStripBasedOnPoint(LampControlStrip&, Point) override { }
    void viewDidFinishDragging() override { }
    bool hasEffectsManager() const override { return canEditEffects; }
    void showEffectsManager() override { calls.emplace_back("showEffectsManager"); }
    std::unique_ptr<StripEffect> makeEffect(const std::string& name, LampControlStrip&) override
    {
        return name == "unknown" ? nullptr : std::make_unique<Effect>(*this, name);
    }
    Lines takeCalls() { return std::exchange(calls, {}); }

    Lines calls;
    bool canEditEffects = true;
    int changes = 0;
    std::vector<EffectMenuItem> menu;

private:
    class Effect : public StripEffect {
    public:
        Effect(FakeOwner& owner, std::string name)
            : m_owner(owner)
            , m_name(std::move(name))
        {
        }
        void start() override
        {
            m_running = true;
            m_owner.calls.push_back("start " + m_name);
        }
        void stop() override
        {
            m_running = false;
            const auto sent = m_owner.m_sockets.sent().size();
            m_owner.calls.push_back(fmt::format("stop {} after {} datagrams", m_name, sent));
        }
        bool isRunning() const override { return m_running; }

    private:
        FakeOwner& m_owner;
        std::string m_name;
        bool m_running = false;
    };

    const UserDefaults& m_defaults;
    const FakeSockets& m_sockets;
};

/// A row that keeps what it is asked for with its owner.
class FakeView : public LampControlStripView {
public:
    explicit FakeView(FakeOwner& owner)
        : m_owner(owner)
    {
    }
    Size size() const override { return {100, 50}; }
    Point origin() const override { return {}; }
    void setOrigin(Point, bool) override { }
    void setShown(bool) override { }
    bool isBeingDragged() const override { return false; }
    bool hitTest(Point) const override { return false; }
    void showReNamePopover(const std::string& name) override
    {
        m_owner.calls.push_back("name? " + name);
    }
    bool isInUse() const override { return false; }
    void popUpEffectMenu(const std::vector<EffectMenuItem>& shown) override
    {
        m_owner.menu = shown;
    }

private:
    FakeOwner& m_owner;
};

struct StripHarness : EngineHarness {
    /// A strip in use, whose sliders stand at 0 until it is told otherwise.
    std::unique_ptr<LampControlStrip> makeStrip(const std::string& id, StripType type)
    {
        auto strip = std::make_unique<LampControlStrip>(id, type, loop);
        strip->setOwner(&owner);
        strip->setControlStripView(std::make_unique<FakeView>(owner));
        strip->reactivateWithEngineRoom(&engine());
        return strip;
    }
    std::unique_ptr<LampControlStrip> makeLampStrip(const LightState& state = {})
    {
        addLamp(1, state);
        drainQueue();
        return makeStrip(lampID(1), StripType::Lamp);
    }

    /// The commands on the wire since the last call: "power 1 on", "colour 1: hue saturation
    /// brightness kelvin", "zone 1/3: ..." with the lamp's number.
    Lines sent()
    {
        Lines result;
        for (const SentDatagram& datagram : sockets.take()) {
            const auto u16 = [&](std::size_t at) {
                return datagram.data.at(at) + 256U * datagram.data.at(at + 1);
            };
            const auto colour = [&](std::size_t at) {
                return fmt::format("{} {} {} {}", u16(at), u16(at + 2), u16(at + 4), u16(at + 6));
            };
            const std::string lamp = datagram.host.substr(datagram.host.rfind('.') + 1);
            if (datagram.type() == 117)
                result.push_back(fmt::format("power {} {}", lamp, u16(36) ? "on" : "off"));
            else if (datagram.type() == 102)
                result.push_back(fmt::format("colour {}: {}", lamp, colour(37)));
            else if (datagram.type() == 501)
                result.push_back(
                    fmt::format("zone {}/{}: {}", lamp, datagram.data.at(36), colour(38)));
        }
        return result;
    }

    static void report(LampControlStrip& strip, const Value::Dictionary& settings)
    {
        strip.implementSettingsFromDictionaryWithoutActingObservingEmbargo(
            StripSettings::fromDictionary(settings));
    }

    FakeOwner owner{defaults, sockets};
};

} // namespace lumeroom::test
