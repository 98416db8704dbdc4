#pragma once

#include <memory>
#include <string>
#include <vector>

namespace lumeroom {

class LampRegistry;
struct Lamp;

/// A control strip as the dialogs hand it to the engine: something with a lamp's or a group's ID.
class LampReference {
public:
    virtual ~LampReference() = default;
    virtual bool isGroup() const = 0;
    virtual std::string getID() const = 0;
    /// Its lamp's reports are not to be shown for a while: they are of the time before a change.
    virtual void imposeTemporaryEmbargo() = 0;
};

using LampReferences = std::vector<LampReference*>;

/// The lamps behind the references, as look-ups find them; groups and unknown IDs are left out.
std::vector<std::shared_ptr<Lamp>> usableLamps(
    const LampReferences& references, const LampRegistry& registry);

/// On all that are there.
void imposeTemporaryEmbargo(const LampReferences& references);

/// The IDs, for the log.
std::string listOfIDs(const LampReferences& references);

} // namespace lumeroom
