#pragma once

#include "engine/LampReference.h"
#include "engine/Records.h"

namespace lumeroom {

class EngineNotifier;
class LampRegistry;
class Log;
class Polls;
class PollingEmbargo;
class RecordIntake;
class RunLoop;

/// Makes, edits, removes and renames groups and locations, lamp by lamp. The records change at
/// once, the lamps as the send queue gets to them; no answer is awaited.
class GroupingCommands {
public:
    struct Environment {
        RunLoop& runLoop;
        Log& log;
        const EngineNotifier& notifier;
        LampRegistry& registry;
        RecordIntake& intake;
        Polls& polls;
        PollingEmbargo& embargo;
    };
    explicit GroupingCommands(const Environment& environment);

    void makeGroupNamed(const LampReferences& lamps, const std::string& name);
    void makeLocationNamed(const LampReferences& lamps, const std::string& name);
    /// The group (location) then holds just these lamps. Shows an alert that says so.
    void editGroupLamps(std::string_view id, const LampReferences& lamps);
    void editLocationLamps(std::string_view id, const LampReferences& lamps);
    void removeGroupWithID(std::string_view id);
    void removeLocationWithID(std::string_view id);
    void renameGroupNewName(std::string_view id, const std::string& name);
    void renameLocationNewName(std::string_view id, const std::string& name);

private:
    template <typename Kind> void make(const LampReferences& lamps, const std::string& name);
    template <typename Kind> void edit(std::string_view id, const LampReferences& lamps);
    template <typename Kind> void takeOut(Lamp& lamp);
    /// Queued for every address that the lamp was heard at.
    template <typename Kind> void send(const typename Kind::Record& record, Lamp& lamp);
    template <typename Record> std::shared_ptr<Record> makeWithName(const std::string& name) const;
    std::int64_t nanosecondssinceepoch() const;

    Environment m_environment;
};

} // namespace lumeroom
