#pragma once

#include "strips/LampControlStrip.h"
#include "support/EngineHarness.h"
#include "support/FakeOwner.h"

namespace lumeroom::test {

using Lines = std::vector<std::string>;

/// A row that keeps what it is asked for with its owner.
class FakeView : public LampControlStripView {
public:
    FakeView(FakeOwner& owner, std::vector<EffectMenuItem>& menu)
        : m_owner(owner)
        , m_menu(menu)
    {
    }
    Size size() const override { return {100, 50}; }
    Size naturalSize() const override { return size(); }
    void setWidth(float) override { }
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
    void popUpEffectMenu(const std::vector<EffectMenuItem>& shown) override { m_menu = shown; }

private:
    FakeOwner& m_owner;
    std::vector<EffectMenuItem>& m_menu;
};

struct StripHarness : EngineHarness {
    StripHarness()
    {
        owner.sent = [this] { return sockets.sent().size(); };
    }
    /// A strip in use, whose sliders stand at 0 until it is told otherwise.
    std::unique_ptr<LampControlStrip> makeStrip(const std::string& id, StripType type)
    {
        auto strip = std::make_unique<LampControlStrip>(
            id, type, StripSurroundings{loop, defaults, log, owner});
        strip->setControlStripView(std::make_unique<FakeView>(owner, effectMenu));
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
            const auto colour = [&](std::size_t at) {
                return fmt::format("{} {} {} {}", datagram.u16(at), datagram.u16(at + 2),
                    datagram.u16(at + 4), datagram.u16(at + 6));
            };
            const std::string lamp = datagram.host.substr(datagram.host.rfind('.') + 1);
            if (datagram.type() == 117)
                result.push_back(fmt::format("power {} {}", lamp, datagram.u16(36) ? "on" : "off"));
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

    FakeOwner owner;
    std::vector<EffectMenuItem> effectMenu; ///< that popped up last
};

} // namespace lumeroom::test
