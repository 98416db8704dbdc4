#include "base/Log.h"

#include <gtest/gtest.h>

namespace lumeroom {

TEST(Log, linesStayLinesAndShort)
{
    std::string line;
    Log log([&line](std::string_view text) { line = text; });
    const struct {
        std::string text;
        std::string line;
    } cases[] = {
        {"Küche 台所 \U0001F4A1", "Küche 台所 \U0001F4A1"},
        {"its own end\n", "its own end\n"},
        {"a\nb\r\x1b[31m\x7f\t", "a\uFFFDb\uFFFD\uFFFD[31m\uFFFD\uFFFD"},
        {"\u009b\u2028\u2029\u202e\u2066\u200f\u061c!",
            "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD!"},
        {"cut \xe3\x81", "cut \uFFFD"},
        {std::string(999, 'x') + "é", std::string(999, 'x') + "..."},
        {std::string(1000, 'x'), std::string(1000, 'x')},
        {std::string(9000, '\x01') + "\n", std::string()},
    };
    for (const auto& c : cases) {
        log.line("{}", c.text);
        EXPECT_TRUE(c.line.empty() || line == c.line) << line;
        EXPECT_LT(line.size(), 1024U);
    }
}

} // namespace lumeroom
