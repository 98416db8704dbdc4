#include "base/UserDefaults.h"

#include "base/DefaultsFile.h"
#include "base/PropertyList.h"

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {
constexpr Seconds kWriteDelay(0.5); // gathers a burst of changes
}

UserDefaults::UserDefaults() = default;

UserDefaults::UserDefaults(const std::filesystem::path& file, RunLoop& runLoop, Log& log)
    : m_file(std::make_unique<DefaultsFile>(file, runLoop.now(), log))
{
    m_stored = m_file->read();
    m_writeSoon.emplace(
        runLoop, [this] { synchronize(); }, kWriteDelay);
}

UserDefaults::~UserDefaults()
{
    synchronize();
}

void UserDefaults::overrideDefaults(const Value::Dictionary& values)
{
    const std::lock_guard lock(m_mutex);
    for (const auto& [name, value] : values) {
        m_overriding.insert_or_assign(name, value);
        tellObservers(name);
    }
}

bool UserDefaults::isOverridden(std::string_view name) const
{
    const std::lock_guard lock(m_mutex);
    return m_overriding.find(name) != m_overriding.end();
}

const Value* UserDefaults::find(std::string_view name) const
{
    if (const auto overriding = m_overriding.find(name); overriding != m_overriding.end())
        return &overriding->second;
    const auto stored = m_stored.find(name);
    return stored == m_stored.end() ? nullptr : &stored->second;
}

std::optional<Value> UserDefaults::objectForKey(std::string_view name) const
{
    const std::lock_guard lock(m_mutex);
    const Value* value = find(name);
    return value ? std::optional(*value) : std::nullopt;
}

void UserDefaults::setObject(std::string_view name, Value value)
{
    const std::lock_guard lock(m_mutex);
    if (refusesChange(name))
        return;
    const auto stored = m_stored.find(name);
    if (stored != m_stored.end() && stored->second == value)
        return;
    m_stored.insert_or_assign(std::string(name), std::move(value));
    changed(name);
}

void UserDefaults::removeObject(std::string_view name)
{
    const std::lock_guard lock(m_mutex);
    if (refusesChange(name))
        return;
    const auto stored = m_stored.find(name);
    if (stored == m_stored.end())
        return;
    m_stored.erase(stored);
    changed(name);
}

/// Whoever tries to change such a value is told, so that what shows it shows it again.
bool UserDefaults::refusesChange(std::string_view name)
{
    if (m_overriding.find(name) == m_overriding.end())
        return false;
    tellObservers(name);
    return true;
}

Subscription UserDefaults::observe(
    RunLoop& runLoop, const std::vector<std::string_view>& names, std::function<void()> changed)
{
    auto subscription = std::make_shared<const std::function<void()>>(std::move(changed));
    const std::weak_ptr weak = subscription;
    const auto call = [weak] {
        if (const auto observer = weak.lock())
            (*observer)();
    };
    const std::lock_guard lock(m_mutex);
    m_observers.push_back({weak, {names.begin(), names.end()}, CallSoon(runLoop, call)});
    return subscription;
}

void UserDefaults::tellObservers(std::string_view name)
{
    std::erase_if(m_observers, [](const auto& observer) { return observer.changed.expired(); });
    for (Observer& observer : m_observers) {
        if (std::find(observer.names.begin(), observer.names.end(), name) != observer.names.end())
            observer.tell.request();
    }
}

void UserDefaults::changed(std::string_view name)
{
    tellObservers(name);
    m_pending = true;
    if (m_writeSoon)
        m_writeSoon->request();
}

bool UserDefaults::synchronize()
{
    std::string text;
    {
        const std::lock_guard lock(m_mutex);
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
