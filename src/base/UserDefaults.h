#pragma once

#include "base/CallSoon.h"
#include "base/DefaultsKeys.h"
#include "base/Listeners.h"

#include <filesystem>
#include <list>
#include <mutex>

namespace lumeroom {

class DefaultsFile;
class Log;

/// All settings and stored data: one property-list file. Nobody keeps copies of what is in it: who
/// depends on a value reads it when it is needed, or observes it.
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

    /// What the program goes by: the overriding value, else the stored one, else the one that the
    /// key registers, in its form (see Value for the coercions) and with its meaning. Without any
    /// of them false, 0, or empty.
    template <typename T> T get(const DefaultsKey<T>& key) const;
    /// The overriding value, else the stored one, as it stands; else nothing.
    std::optional<Value> objectForKey(std::string_view name) const;

    void setObject(std::string_view name, Value value);
    void removeObject(std::string_view name);

    /// Values over the stored ones for as long as this object lives. They are never written, and
    /// what is set or removed under their names is dropped.
    void overrideDefaults(const Value::Dictionary& values);
    bool isOverridden(std::string_view name) const;

    /// Calls `changed` on the main thread soon after one of these has changed, by whichever thread;
    /// a burst of changes makes one call. The subscription is to be dropped on the main thread.
    [[nodiscard]] Subscription observe(RunLoop& runLoop, const std::vector<std::string_view>& names,
        std::function<void()> changed);

    /// Writes pending changes now. False if that failed: they are tried again with the next change.
    bool synchronize();

private:
    struct Observer {
        std::weak_ptr<const std::function<void()>> changed;
        std::vector<std::string> names;
        CallSoon tell;
    };
    const Value* find(std::string_view name) const;
    bool refusesChange(std::string_view name);
    void changed(std::string_view name);
    void tellObservers(std::string_view name);

    mutable std::mutex m_mutex;
    Value::Dictionary m_stored;
    Value::Dictionary m_overriding;
    std::list<Observer> m_observers;
    bool m_pending = false;
    std::unique_ptr<DefaultsFile> m_file;
    std::optional<CallSoon> m_writeSoon;
};

template <typename T> T UserDefaults::get(const DefaultsKey<T>& key) const
{
    const std::optional<Value> value = objectForKey(key.name);
    T result = value ? coerced<T>(*value) : key.registeredValue();
    return key.meaning ? key.meaning(std::move(result)) : result;
}

} // namespace lumeroom
