#include "engine/TagCommands.h"

#include "base/Log.h"
#include "engine/EngineNotifier.h"
#include "engine/LabelText.h"
#include "engine/LampRegistry.h"
#include "engine/LampSockets.h"
#include "engine/PollingEmbargo.h"
#include "engine/RecordIntake.h"
#include "engine/WireFormat.h"

#include <algorithm>

namespace lumeroom {

using wire::Message;

namespace {

std::uint64_t fieldOf(const Lamp& lamp)
{
    std::uint64_t field = 0;
    if (lamp.tags) {
        for (const auto& tag : *lamp.tags)
            field |= tag->tag;
    }
    return field;
}

void addTo(Lamp& lamp, const std::shared_ptr<const Tag>& tag)
{
    if (!lamp.tags)
        lamp.tags.emplace();
    const bool known = std::any_of(lamp.tags->begin(), lamp.tags->end(),
        [&tag](const auto& present) { return *present == *tag; });
    if (!known)
        lamp.tags->push_back(tag);
}

} // namespace

TagCommands::TagCommands(const Environment& environment)
    : m_environment(environment)
{
}

void TagCommands::makeTagNamed(const LampReferences& references, const std::string& name)
{
    if (m_environment.log.shows(3)) {
        m_environment.log.line(
            "Engine room instructed to make tag {} with: {}", name, listOfIDs(references));
    }
    m_environment.embargo.imposeTemporaryEmbargo();
    imposeTemporaryEmbargo(references);
    const auto tag = makeTagWithName(name);
    for (const auto& lamp : usableLamps(references, m_environment.registry)) {
        sendAddTagToLamp(tag->tag, *lamp);
        sendSetTagLabelForTagToLamp(name, tag->tag, *lamp);
        addTo(*lamp, tag);
    }
    m_environment.intake.addTagLabelToKnownTags(tag->label, tag->tag);
}

void TagCommands::editTagLamps(std::string_view id, const LampReferences& references)
{
    if (m_environment.log.shows(3)) {
        m_environment.log.line(
            "Engine room instructed to edit tag {} with: {}", id, listOfIDs(references));
    }
    m_environment.embargo.imposeTemporaryEmbargo();
    imposeTemporaryEmbargo(references);
    const auto tag = m_environment.registry.tagNamed(id);
    if (tag) {
        const Lamps kept = usableLamps(references, m_environment.registry);
        for (const auto& lamp : kept) {
            sendAddTagToLamp(tag->tag, *lamp);
            addTo(*lamp, tag);
        }
        for (const auto& lamp : m_environment.registry.distinctLamps()) {
            if (!lamp->tags || std::find(kept.begin(), kept.end(), lamp) != kept.end())
                continue;
            sendSubtractTagFromLamp(tag->tag, *lamp);
            std::erase_if(*lamp->tags, [&tag](const auto& present) { return *present == *tag; });
        }
    }
    m_environment.notifier.runModal({"Edit Tag Successful",
        fmt::format("Tag {} updated", tag ? tag->label : std::string()), {"OK"}});
}

void TagCommands::removeTag(std::string_view id)
{
    const std::string removed(id); // the caller's text may belong to the record that goes
    m_environment.log.line("Engine room instructed to remove tag {}", removed);
    m_environment.embargo.imposeTemporaryEmbargo();
    const auto tag = m_environment.registry.tagNamed(removed);
    editTagLamps(removed, {});
    if (!tag)
        return;
    std::erase(m_environment.registry.tagsArray(), tag);
    for (const auto& lamp : m_environment.registry.distinctLamps())
        sendSetTagLabelForTagToLamp("", tag->tag, *lamp);
}

std::shared_ptr<const Tag> TagCommands::makeTagWithName(const std::string& name) const
{
    // Past the last bit comes 0, which no tag has a part of: a 65th tag is made with it.
    std::uint64_t bit = 1;
    const auto isTaken = [this, &bit] {
        m_environment.log.line("testing {}", static_cast<std::int64_t>(bit));
        return !m_environment.registry.tagArrayForTags(bit).empty();
    };
    while (isTaken())
        bit <<= 1U;
    return std::make_shared<const Tag>(Tag{bit, name, name});
}

void TagCommands::sendAddTagToLamp(std::uint64_t tag, Lamp& lamp)
{
    sendSetTagToLamp(fieldOf(lamp) | tag, lamp);
}

void TagCommands::sendSubtractTagFromLamp(std::uint64_t tag, Lamp& lamp)
{
    sendSetTagToLamp(fieldOf(lamp) & ~tag, lamp);
}

void TagCommands::sendSetTagToLamp(std::uint64_t field, Lamp& lamp)
{
    sendDirect(wire::nameOf(Message::DeviceSetTags), lamp, wire::deviceSetTags(lamp.mac, field));
}

void TagCommands::sendSetTagLabelForTagToLamp(
    const std::string& label, std::uint64_t tag, Lamp& lamp)
{
    sendDirect(wire::nameOf(Message::DeviceSetTagLabels), lamp,
        wire::deviceSetTagLabels(lamp.mac, tag, dataFromString(label, m_environment.log)));
}

void TagCommands::sendDirect(std::string_view message, Lamp& lamp, std::vector<std::uint8_t> data)
{
    for (const auto& record : lamp.answeringElsewhere())
        sendDirect(message, *record, data);
    if (lamp.address.empty())
        return;
    if (m_environment.log.shows(3))
        m_environment.log.line("sending {} addressed to {}", message, lamp.address);
    m_environment.sockets.sendDirect(lamp, std::move(data));
}

} // namespace lumeroom
