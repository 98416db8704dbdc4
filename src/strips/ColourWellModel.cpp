#include "strips/ColourWellModel.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"
#include "engine/LampUnits.h"
#include "strips/ColourArchive.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumeroom {

namespace {

constexpr float kLevels = kMostLevel;
constexpr int kLogLevelOfDrops = 2;

} // namespace

void ColourWellModel::setColour(const Colour& colour)
{
    Colour shown = colour;
    if ((m_capabilities & kCapabilityColour) == 0) {
        shown = Colour::grey(colour.brightness);
        shown.kelvin = colour.kelvin;
    }
    assign(m_colour, shown);
}

void ColourWellModel::setCapabilities(int capabilities)
{
    assign(m_capabilities, capabilities);
    setColour(m_colour);
}

void ColourWellModel::userHasPickedColour(const Colour& colour)
{
    m_picked = true;
    m_stroke = m_session;
    setColour(colour);
    handleChange();
}

void ColourWellModel::userHasCancelled()
{
    if (std::exchange(m_picked, false) && m_cancelled)
        m_cancelled();
}

void ColourWellModel::act()
{
    m_stroke = newStroke();
    fireFilteredAction();
}

void ColourWellModel::fireFilteredAction()
{
    if (m_target)
        m_target->handleControl(*this);
}

void ColourWellModel::setColourPicker(std::shared_ptr<ZTColourPicker> picker)
{
    if (m_picker && m_picker != picker && m_picker->delegate() == this)
        m_picker->setDelegate(nullptr);
    m_picker = std::move(picker);
}

void ColourWellModel::showThePopover()
{
    constexpr float kWhitest = 0.01F;
    if (!m_picker || !m_popover || !isEnabled())
        return;
    m_picker->setDelegate(nullptr); // what it shows on loading is not to come back to any well
    m_picker->setColour(m_colour);
    if (usableKelvin(m_colour) && m_colour.saturation <= kWhitest)
        m_picker->switchToWhitesMode();
    m_popover->showAtWell(ColourWellPopover::Edge::Right);
    m_picker->setDelegate(this);
    m_session = newStroke();
    m_picked = false;
    if (m_opened)
        m_opened();
}

void ColourWellModel::mouseUp()
{
    if (m_clickstep != 0)
        showThePopover();
    m_clickstep = 0;
}

void ColourWellModel::scrollWheel(float deltaY)
{
    constexpr float kLowestLevel = 0.5F;
    const auto levelsPerLine = static_cast<float>(m_defaults.get(keys::kScrollToDimTrackingSpeed));
    const float level = m_colour.brightness * kLevels + levelsPerLine * deltaY;
    if (!isEnabled() || std::isnan(level))
        return;
    setColour({.hue = m_colour.hue,
        .saturation = m_colour.saturation,
        .brightness = std::clamp(level, kLowestLevel, kLevels) / kLevels,
        .alpha = 1,
        .kelvin = usableKelvin(m_colour)});
    m_stroke = nullptr;
    handleChange();
}

Value::Data ColourWellModel::archivedColour()
{
    Colour archived = m_colour;
    Value::Data data = lumeroom::archivedColour(archived);
    assign(m_colour, archived);
    return data;
}

bool ColourWellModel::performDragOperation(const ColourDrop& drop)
{
    if (!drop.offersArchive && !drop.offersColour)
        return refuseDrop("Error MyNSView performDragOperation");
    const bool taken
        = drop.offersArchive ? takeArchivedColour(drop.archivedColour) : takeColour(drop.colour);
    if (!taken)
        return refuseDrop("Error: MyNSView zPasteboardData == nil");
    if (m_log.shows(kLogLevelOfDrops)) {
        const Rgba rgba = rgbaFrom(m_colour);
        m_log.line("colour dropped with rgbk {:.2f}, {:.2f}, {:.2f}, {} ", rgba.red, rgba.green,
            rgba.blue, m_colour.kelvin.value_or(0));
    }
    return true;
}

bool ColourWellModel::takeArchivedColour(const std::optional<Value::Data>& data)
{
    if (!data)
        return false;
    const auto colour = colourUsingArchivedColour(&*data, m_log);
    if (!colour)
        return false;
    setColour(*colour);
    act();
    if (m_picker) {
        const bool white = m_colour.saturation * kLevels < 1;
        m_picker->setPickingWhites(white && usableKelvin(m_colour));
    }
    return true;
}

bool ColourWellModel::takeColour(const std::optional<Colour>& colour)
{
    if (!colour)
        return false;
    setColour(*colour);
    act();
    return true;
}

bool ColourWellModel::refuseDrop(std::string_view reason)
{
    m_log.line("{}", reason);
    return false;
}

} // namespace lumeroom
