#include "support/FuzzEngine.h"

#include <gtest/gtest.h>

#include <random>

namespace lumeroom::test {

namespace {

/// One datagram of every kind that lamps send.
std::vector<Datagram> seeds()
{
    return {stateService(1), lightState(1, {.label = "Desk"}), stateGrouping(53, 1, 7, "Den"),
        stateGrouping(50, 1, 8, "Home"), stateVersion(1, 31), stateTagLabels(1, 1, "Evening"),
        stateTags(1, 1), stateZone(1, 16, 3, 500), stateMultizone(1, 16, 8, 500),
        reply(25, 1, Bytes().text("Label", 32)), reply(45, 1, Bytes())};
}

} // namespace

TEST(FrameFuzz, aMillionMutatedFramesDoNoHarm)
{
    std::mt19937 random(20260302); // the same frames in every run
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    const std::vector<Datagram> originals = seeds();
    FuzzEngine fuzz;
    Datagram frame;
    for (int i = 0; i < 1'000'000; ++i) {
        frame = originals[below(originals.size())];
        for (std::size_t changes = below(6); changes > 0 && !frame.empty(); --changes) {
            switch (below(4)) {
            case 0:
                frame[below(frame.size())] = static_cast<std::uint8_t>(random());
                break;
            case 1:
                frame.resize(below(frame.size() + 1));
                break;
            case 2:
                frame.insert(frame.end(), below(40), static_cast<std::uint8_t>(random()));
                break;
            default:
                frame[below(frame.size())] ^= static_cast<std::uint8_t>(1U << below(8));
                break;
            }
        }
        fuzz.take(frame, 1 + static_cast<unsigned>(below(6)));
    }
    // What was known is still there, and nothing has grown without limit.
    for (unsigned n = 1; n <= 4; ++n)
        EXPECT_TRUE(fuzz.engine().registry().lampWithID(lampID(n)));
    EXPECT_LE(fuzz.engine().registry().lightsArray().size(), 5000U);
    EXPECT_LE(fuzz.engine().registry().groupsArray().size(), 1000U);
    EXPECT_LE(fuzz.engine().registry().tagsArray().size(), 64U);
}

} // namespace lumeroom::test
