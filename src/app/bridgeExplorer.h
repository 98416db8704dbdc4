#pragma once

#include "base/Value.h"

#include <functional>
#include <memory>

namespace lumeroom {

class LampRegistry;

/// An item of the explorer's tree: a key and the dictionary that it belongs to. A leaf has no
/// parent, and its text as the key.
struct keyValPair {
    std::string key;
    /// Keeps the whole of the loaded data alive, so that an item outlives a reload.
    std::shared_ptr<const Value::Dictionary> parent;

    /// The parent's object for the key; null with no parent.
    const Value* getValue() const;
};

/// Shows what the engine knows of each lamp as a tree of names and values.
class bridgeExplorer {
public:
    explicit bridgeExplorer(const LampRegistry& registry);

    /// Loads the data anew and brings the window to the front.
    void loadData();
    void refresh();

    // The tree; null stands for its root
    std::size_t numberOfChildrenOfItem(const keyValPair* item) const;
    keyValPair childOfItem(std::size_t index, const keyValPair* item) const;
    /// A number or a list can be expanded, to nothing.
    static bool isItemExpandable(const keyValPair& item) { return item.parent != nullptr; }
    static const std::string& objectValueByItem(const keyValPair& item) { return item.key; }

    /// The view's wishes to be told.
    std::function<void()> makeKeyAndOrderFront;
    std::function<void()> reloadData;

private:
    const LampRegistry& m_registry;
    std::shared_ptr<const Value::Dictionary> m_explorerDictionary;
};

/// A lamp's dictionary reworked for reading.
Value::Dictionary readableLamp(Value::Dictionary lamp);

} // namespace lumeroom
