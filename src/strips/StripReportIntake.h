#pragma once

#include "strips/StripSettings.h"

#include <utility>

namespace lumeroom {

/// Decides what of a lamp's reports a strip shows, and keeps in mind what it did not show.
class StripReportIntake {
public:
    /// What to show of the report; nothing if it is refused. An unsent colour stays until the lamp
    /// has news of its own.
    std::optional<StripSettings> take(
        const StripSettings& report, bool refused, bool colourIsUnsent);
    /// The strip shows what a record has of the lamp's reports, taken here or not.
    void hasShown(const StripSettings& settings);
    /// Whether there was news in what was refused; once.
    bool takeMissed() { return std::exchange(m_missed, false); }

private:
    // The count of the last
    std::optional<std::uint64_t> m_reportsHeard;
    std::optional<std::uint64_t> m_reportsShown;
    bool m_missed = false;
};

} // namespace lumeroom
