#include "base/LogLine.h"

#include "base/Utf8.h"

#include <utf8cpp/utf8/unchecked.h>

namespace lumeroom {

namespace {

constexpr std::size_t kLongestLine = 1000;

bool isHarmless(char32_t character)
{
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    const bool separatesLines = character == 0x2028 || character == 0x2029;
    const bool turnsDirection = character == 0x061C || character == 0x200E || character == 0x200F
        || (character >= 0x202A && character <= 0x202E)
        || (character >= 0x2066 && character <= 0x2069);
    return !isControl && !separatesLines && !turnsDirection;
}

std::string withoutControls(std::string_view text)
{
    const std::string valid = wellFormedUtf8(text);
    std::string plain;
    for (auto at = valid.begin(); at != valid.end();) {
        const auto start = at;
        if (isHarmless(utf8::unchecked::next(at)))
            plain.append(start, at);
        else
            plain += "\xEF\xBF\xBD";
    }
    return plain;
}

} // namespace

std::string logLine(std::string_view text)
{
    const bool endsLine = text.ends_with('\n');
    text.remove_suffix(endsLine ? 1 : 0);
    // What is replaced grows, and what is cut within a character is replaced: so it is cut again.
    std::string line = withoutControls(text.substr(0, kLongestLine + 1));
    if (line.size() > kLongestLine) {
        line.resize(kLongestLine);
        line.resize(line.size() - incompleteTail(line));
        line += "...";
    }
    if (endsLine)
        line += '\n';
    return line;
}

} // namespace lumeroom
