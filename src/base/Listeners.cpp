#include "base/Listeners.h"

namespace lumeroom {

Subscription Listeners::add(std::function<void()> listener)
{
    std::erase_if(m_listeners, [](const auto& known) { return known.expired(); });
    auto subscription = std::make_shared<const std::function<void()>>(std::move(listener));
    m_listeners.push_back(subscription);
    return subscription;
}

void Listeners::tell() const
{
    const auto present = m_listeners; // a listener may add one
    for (const auto& known : present) {
        if (const auto listener = known.lock())
            (*listener)();
    }
}

} // namespace lumeroom
