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
};

using LampReferences = std::vector<const LampReference*>;

/// The lamps behind the references; groups and unknown IDs are left out.
std::vector<std::shared_ptr<Lamp>> usableLamps(
    const LampReferences& references, const LampRegistry& registry);

/// The IDs, for the log.
std::string listOfIDs(const LampReferences& references);

} // namespace lumeroom
