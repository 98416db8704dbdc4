#pragma once

#include "base/Value.h"

#include <filesystem>
#include <mutex>

namespace lumeroom {

class Log;

/// All settings and stored data: one property-list file, over registered fallbacks.
/// Any thread may read and write it; the file is written on the main thread shortly after a change,
/// whole, to a temporary file that is synced and renamed over it.
class UserDefaults {
public:
    /// Keeps its values in memory only.
    UserDefaults();
    /// Reads `file`, if it exists. One that cannot be read is kept beside it under another name and
    /// reported to `log`; if it cannot even be set aside, it is left as it is and nothing is ever
    /// written over it.
    UserDefaults(std::filesystem::path file, RunLoop& runLoop, Log& log);
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// Fallbacks under the stored values, never written to the file.
    void registerDefaults(Value::Dictionary fallbacks);

    /// The stored value, else the registered one, else nothing.
    std::optional<Value> objectForKey(std::string_view key) const;
    // Absent keys read as false, 0 and "" (see Value for the coercions).
    bool boolForKey(std::string_view key) const;
    std::int64_t integerForKey(std::string_view key) const;
    float floatForKey(std::string_view key) const;
    double doubleForKey(std::string_view key) const;
    std::string stringForKey(std::string_view key) const;
    /// Nothing unless the value is an array (a dictionary).
    std::optional<Value::Array> arrayForKey(std::string_view key) const;
    std::optional<Value::Dictionary> dictionaryForKey(std::string_view key) const;

    void setObject(std::string_view key, Value value);
    void removeObject(std::string_view key);

    /// Called on the thread that made the change, after it. One observer; empty to remove.
    void setObserver(std::function<void(const std::string& key)> observer);

    /// Writes pending changes now. False, with a log line the first time, if that failed; the
    /// changes are then tried again at the next one.
    bool synchronize();

private:
    // Private members are the implementer's to choose.
    struct Store;
    std::unique_ptr<Store> m_store;
};

} // namespace lumeroom
