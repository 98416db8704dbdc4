#pragma once

#include "base/Value.h"

#include <filesystem>
#include <mutex>

namespace lumeroom {

class DefaultsFile;
class Log;

/// Someone's wish to hear of changes to the defaults. Dropping it, on the main thread, ends it.
class DefaultsObservation {
public:
    DefaultsObservation() = default;
    DefaultsObservation(DefaultsObservation&& other) noexcept = default;
    DefaultsObservation& operator=(DefaultsObservation&& other) noexcept;
    ~DefaultsObservation() { end(); }

private:
    friend class UserDefaults;
    struct Observer;
    explicit DefaultsObservation(std::shared_ptr<Observer> observer)
        : m_observer(std::move(observer))
    {
    }
    void end();

    std::shared_ptr<Observer> m_observer;
};

/// All settings and stored data: one property-list file, over registered fallbacks.
/// Any thread may read and write it; the file is written on the main thread shortly after a change.
class UserDefaults {
public:
    /// Keeps its values in memory only.
    UserDefaults();
    /// Reads `file`, if it exists. One that cannot be read is kept beside it under another name and
    /// reported to `log`; if it cannot even be set aside, it is left as it is and nothing is ever
    /// written over it.
    UserDefaults(const std::filesystem::path& file, RunLoop& runLoop, Log& log);
    /// Writes what is pending.
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// Fallbacks under the stored values, never written to the file.
    void registerDefaults(Value::Dictionary fallbacks);

    /// Values over the stored ones for as long as this object lives. They are never written, and
    /// what is set or removed under their keys is dropped.
    void overrideDefaults(Value::Dictionary values);
    bool isOverridden(std::string_view key) const;

    /// The overriding value, else the stored one, else the registered one, else nothing.
    std::optional<Value> objectForKey(std::string_view key) const;
    // Absent keys read as false, 0 and "" (see Value for the coercions).
    bool boolForKey(std::string_view key) const;
    std::int64_t integerForKey(std::string_view key) const;
    float floatForKey(std::string_view key) const;
    std::string stringForKey(std::string_view key) const;
    /// Nothing unless the value is an array.
    std::optional<Value::Array> arrayForKey(std::string_view key) const;

    void setObject(std::string_view key, Value value);
    void removeObject(std::string_view key);

    /// Calls `changed` on the main thread soon after any value has changed, by whichever thread; a
    /// burst of changes makes one call.
    [[nodiscard]] DefaultsObservation observe(RunLoop& runLoop, std::function<void()> changed);

    /// Writes pending changes now. False if that failed: they are tried again with the next change.
    bool synchronize();

private:
    const Value* find(std::string_view key) const;
    bool refusesChange(std::string_view key);
    void changed();
    void tellObservers();

    mutable std::mutex m_mutex;
    Value::Dictionary m_stored;
    Value::Dictionary m_registered;
    Value::Dictionary m_overriding;
    std::vector<std::weak_ptr<DefaultsObservation::Observer>> m_observers;
    bool m_pending = false;
    bool m_writeScheduled = false;
    RunLoop* m_runLoop = nullptr;
    std::unique_ptr<DefaultsFile> m_file;
    Timer m_writeTimer;
    Lifeline m_lifeline;
};

} // namespace lumeroom
