#include "base/UserDefaults.h"

#include "base/DefaultsFile.h"
#include "base/PropertyList.h"

#include <utility>

namespace lumeroom {

namespace {
constexpr Seconds kWriteDelay(0.5); // gathers a burst of changes
}

struct DefaultsObservation::Observer {
    RunLoop& runLoop;
    std::function<void()> changed;
    bool ended = false; ///< main thread only
    bool told = false; ///< a call is on its way; under the defaults' lock
};

DefaultsObservation& DefaultsObservation::operator=(DefaultsObservation&& other) noexcept
{
    if (this != &other) {
        end();
        m_observer = std::move(other.m_observer);
    }
    return *this;
}

void DefaultsObservation::end()
{
    if (m_observer)
        m_observer->ended = true;
    m_observer.reset();
}

UserDefaults::UserDefaults() = default;

UserDefaults::UserDefaults(const std::filesystem::path& file, RunLoop& runLoop, Log& log)
    : m_runLoop(&runLoop)
    , m_file(std::make_unique<DefaultsFile>(file, runLoop.now(), log))
{
    m_stored = m_file->read();
}

UserDefaults::~UserDefaults()
{
    synchronize();
}

void UserDefaults::registerDefaults(Value::Dictionary fallbacks)
{
    const std::lock_guard lock(m_mutex);
    fallbacks.merge(m_registered); // a key registered again takes the later value
    m_registered = std::move(fallbacks);
    tellObservers();
}

void UserDefaults::overrideDefaults(Value::Dictionary values)
{
    const std::lock_guard lock(m_mutex);
    values.merge(m_overriding);
    m_overriding = std::move(values);
    tellObservers();
}

bool UserDefaults::isOverridden(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    return m_overriding.find(key) != m_overriding.end();
}

const Value* UserDefaults::find(std::string_view key) const
{
    if (const auto overriding = m_overriding.find(key); overriding != m_overriding.end())
        return &overriding->second;
    if (const auto stored = m_stored.find(key); stored != m_stored.end())
        return &stored->second;
    const auto registered = m_registered.find(key);
    return registered == m_registered.end() ? nullptr : &registered->second;
}

std::optional<Value> UserDefaults::objectForKey(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(key);
    return value ? std::optional(*value) : std::nullopt;
}

bool UserDefaults::boolForKey(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(key);
    return value && value->boolValue();
}

std::int64_t UserDefaults::integerForKey(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(key);
    return value ? value->integerValue() : 0;
}

float UserDefaults::floatForKey(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(key);
    return value ? value->floatValue() : 0;
}

std::string UserDefaults::stringForKey(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(key);
    return value ? value->stringValue() : std::string();
}

std::optional<Value::Array> UserDefaults::arrayForKey(std::string_view key) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(key);
    const auto* array = value ? value->as<Value::Array>() : nullptr;
    return array ? std::optional(*array) : std::nullopt;
}

void UserDefaults::setObject(std::string_view key, Value value)
{
    const std::lock_guard lock(m_mutex);
    if (refusesChange(key))
        return;
    const auto stored = m_stored.find(key);
    if (stored != m_stored.end() && stored->second == value)
        return;
    m_stored.insert_or_assign(std::string(key), std::move(value));
    changed();
}

void UserDefaults::removeObject(std::string_view key)
{
    const std::lock_guard lock(m_mutex);
    if (refusesChange(key))
        return;
    const auto stored = m_stored.find(key);
    if (stored == m_stored.end())
        return;
    m_stored.erase(stored);
    changed();
}

/// Whoever tries to change such a value is told, so that what shows it shows it again.
bool UserDefaults::refusesChange(std::string_view key)
{
    if (m_overriding.find(key) == m_overriding.end())
        return false;
    tellObservers();
    return true;
}

DefaultsObservation UserDefaults::observe(RunLoop& runLoop, std::function<void()> changed)
{
    auto observer = std::make_shared<DefaultsObservation::Observer>(
        DefaultsObservation::Observer{runLoop, std::move(changed)});
    const std::lock_guard lock(m_mutex);
    m_observers.push_back(observer);
    return DefaultsObservation(std::move(observer));
}

void UserDefaults::tellObservers()
{
    std::erase_if(m_observers, [](const auto& observer) { return observer.expired(); });
    for (const auto& weak : m_observers) {
        const auto observer = weak.lock();
        if (!observer || std::exchange(observer->told, true))
            continue;
        observer->runLoop.post(m_lifeline.guard([this, weak] {
            const auto called = weak.lock();
            if (!called || called->ended)
                return;
            {
                // From here on a change is news again.
                const std::lock_guard lock(m_mutex);
                called->told = false;
            }
            called->changed();
        }));
    }
}

void UserDefaults::changed()
{
    tellObservers();
    m_pending = true;
    if (!m_runLoop || m_writeScheduled)
        return;
    m_writeScheduled = true;
    m_runLoop->post(m_lifeline.guard(
        [this] { m_writeTimer = m_runLoop->after(kWriteDelay, [this] { synchronize(); }); }));
}

bool UserDefaults::synchronize()
{
    std::string text;
    {
        const std::lock_guard lock(m_mutex);
        m_writeScheduled = false;
        if (!m_pending || !m_file)
            return true;
        m_pending = false;
        text = propertylist::toXml(m_stored);
    }
    if (m_file->write(text))
        return true;
    const std::lock_guard lock(m_mutex);
    m_pending = true;
    return false;
}

} // namespace lumeroom
