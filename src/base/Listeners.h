#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace lumeroom {

/// Somebody's wish to be told of something. Dropping it ends it.
using Subscription = std::shared_ptr<const std::function<void()>>;

/// Those who want to be told of something, on one thread.
class Listeners {
public:
    [[nodiscard]] Subscription add(std::function<void()> listener);
    /// A listener may end its own wish or another's, or add one, which is told from the next time
    /// on.
    void tell() const;

private:
    std::vector<std::weak_ptr<const std::function<void()>>> m_listeners;
};

} // namespace lumeroom
