#pragma once

#include "engine/LampReference.h"
#include "engine/Records.h"

namespace lumeroom {

class EngineNotifier;
class LampRegistry;
class LampSockets;
class Log;
class PollingEmbargo;
class RecordIntake;

/// Makes, edits and removes the tags of the older scheme. These messages leave at once.
class TagCommands {
public:
    struct Environment {
        Log& log;
        const EngineNotifier& notifier;
        LampRegistry& registry;
        RecordIntake& intake;
        LampSockets& sockets;
        PollingEmbargo& embargo;
    };
    explicit TagCommands(const Environment& environment);

    void makeTagNamed(const LampReferences& lamps, const std::string& name);
    /// The tag is then on just these lamps. Shows an alert that says so.
    void editTagLamps(std::string_view id, const LampReferences& lamps);
    void removeTag(std::string_view id);

    /// A record with the first bit that no known tag has; with none when all are taken.
    std::shared_ptr<const Tag> makeTagWithName(const std::string& name) const;

    /// The field sent is what the record knows of the lamp's tags, with the bit set (cleared).
    void sendAddTagToLamp(std::uint64_t tag, Lamp& lamp);
    void sendSubtractTagFromLamp(std::uint64_t tag, Lamp& lamp);
    void sendSetTagToLamp(std::uint64_t field, Lamp& lamp);
    void sendSetTagLabelForTagToLamp(const std::string& label, std::uint64_t tag, Lamp& lamp);

private:
    /// To every address that the lamp was heard at.
    void sendDirect(std::string_view message, Lamp& lamp, std::vector<std::uint8_t> data);

    Environment m_environment;
};

} // namespace lumeroom
