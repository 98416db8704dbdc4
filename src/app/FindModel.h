#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace lumeroom {

/// What the user does to look for a lamp by its name.
struct FindActions {
    std::function<void()> open;
    /// Whether there are so many rows that the first letter typed opens it.
    std::function<bool()> opensByTyping;
    std::function<void(const std::string& text)> look;
    std::function<void()> close;
};

/// How many rows there are for what is looked for, and for anything.
struct FoundCount {
    std::size_t found = 0;
    std::size_t all = 0;
};

} // namespace lumeroom
