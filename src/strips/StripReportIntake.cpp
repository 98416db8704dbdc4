#include "strips/StripReportIntake.h"

namespace lumeroom {

std::optional<StripSettings> StripReportIntake::take(
    const StripSettings& report, bool refused, bool colourIsUnsent)
{
    // Nothing is missed when another lamp spoke and this one has not answered yet. Its record may
    // have changed without a report, by what it was sent.
    const bool isNews = report.reports ? report.reports != m_last.reports : report != m_last;
    m_missed = refused && (m_missed || isNews);
    m_last = report;
    if (refused)
        return {};
    const bool isOld = report.reports && report.reports == m_reportsShown;
    m_reportsShown = report.reports;
    StripSettings shown = report;
    if (isOld && colourIsUnsent)
        shown.colour.reset();
    return shown;
}

} // namespace lumeroom
