#include "base/StoredList.h"

namespace lumeroom {

std::optional<std::string> shownText(const Value* stored)
{
    constexpr std::size_t kLongest = 1000;
    std::string text = stored ? stored->stringValue() : std::string();
    return text.size() <= kLongest ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace lumeroom
