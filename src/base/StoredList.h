#pragma once

#include "base/UserDefaults.h"

#include <map>

namespace lumeroom {

/// A text of a stored entry that may be shown: "" where there is none, nothing where it is longer
/// than any that a person gives.
std::optional<std::string> shownText(const Value* stored);

/// A stored array of dictionaries, entry by entry. An `Entry` is what the program knows of one:
///
///     static std::optional<Entry> read(const Value::Dictionary&); // nothing if it makes no sense
///     void write(Value::Dictionary&) const; // sets its own keys
///     auto identity() const; // what tells it from the others; for `assign`
///
/// The rest stays as it was found, and where: keys that the program does not know, entries that it
/// cannot read. Main thread only.
template <typename Entry> class StoredList {
public:
    /// A place is an index in the stored array.
    struct Item {
        std::size_t place;
        Entry entry;
    };
    /// What a file holds beyond this many entries is kept, but not read.
    static constexpr std::size_t kMostEntries = 10'000;

    StoredList(UserDefaults& defaults, const DefaultsKey<Value::Array>& key)
        : m_defaults(defaults)
        , m_key(key)
    {
    }

    std::vector<Item> items() const { return read(m_defaults, m_key); }
    static std::vector<Item> read(
        const UserDefaults& defaults, const DefaultsKey<Value::Array>& key)
    {
        return itemsOf(defaults.get(key));
    }

    void append(const Entry& entry)
    {
        Value::Array stored = m_defaults.get(m_key);
        write(entry, stored.emplace_back(Value::Dictionary()));
        m_defaults.setObject(m_key, std::move(stored));
    }

    /// Nothing happens where there is no such place, or no dictionary in it.
    void replace(std::size_t place, const Entry& entry)
    {
        Value::Array stored = m_defaults.get(m_key);
        if (place >= stored.size() || !stored[place].is<Value::Dictionary>())
            return;
        write(entry, stored[place]);
        m_defaults.setObject(m_key, std::move(stored));
    }

    void remove(std::size_t place)
    {
        Value::Array stored = m_defaults.get(m_key);
        if (place >= stored.size())
            return;
        stored.erase(stored.begin() + static_cast<std::ptrdiff_t>(place));
        m_defaults.setObject(m_key, std::move(stored));
    }

    /// Makes these, in this order, the entries that can be read. An entry that was there already
    /// keeps its other keys.
    void assign(const std::vector<Entry>& entries)
    {
        Value::Array stored = m_defaults.get(m_key);
        std::map<std::decay_t<decltype(entries.front().identity())>, Value> known;
        std::vector<bool> isRead(stored.size());
        for (const Item& item : itemsOf(stored)) {
            isRead[item.place] = true;
            known.emplace(item.entry.identity(), std::move(stored[item.place]));
        }
        Value::Array result;
        auto next = entries.begin();
        const auto addNext = [&] {
            const auto found = known.find(next->identity());
            result.push_back(found == known.end() ? Value(Value::Dictionary()) : found->second);
            write(*next++, result.back());
        };
        for (std::size_t place = 0; place < stored.size(); ++place) {
            if (!isRead[place])
                result.push_back(std::move(stored[place]));
            else if (next != entries.end())
                addNext();
        }
        while (next != entries.end())
            addNext();
        m_defaults.setObject(m_key, std::move(result));
    }

private:
    static std::vector<Item> itemsOf(const Value::Array& stored)
    {
        std::vector<Item> items;
        for (std::size_t place = 0; place < stored.size() && items.size() < kMostEntries; ++place) {
            const auto* dictionary = stored[place].as<Value::Dictionary>();
            if (auto entry = dictionary ? Entry::read(*dictionary) : std::nullopt)
                items.push_back({place, std::move(*entry)});
        }
        return items;
    }
    static void write(const Entry& entry, Value& stored)
    {
        entry.write(*stored.as<Value::Dictionary>());
    }

    UserDefaults& m_defaults;
    DefaultsKey<Value::Array> m_key;
};

} // namespace lumeroom
