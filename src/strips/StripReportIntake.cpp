#include "strips/StripReportIntake.h"

namespace lumeroom {

std::optional<StripSettings> StripReportIntake::take(
    const StripSettings& report, bool refused, bool colourIsUnsent)
{
    // Nothing is missed when another lamp spoke and this one has not answered yet. What does not
    // count its reports may have one that undoes what was sent.
    const bool isNews = !report.reports || report.reports != m_reportsHeard;
    m_missed = refused && (m_missed || isNews);
    m_reportsHeard = report.reports;
    if (refused)
        return {};
    const bool isOld = report.reports && report.reports == m_reportsShown;
    StripSettings shown = report;
    if (isOld && colourIsUnsent)
        shown.colour.reset();
    return shown;
}

void StripReportIntake::hasShown(const StripSettings& settings)
{
    if (settings.reports)
        m_reportsHeard = m_reportsShown = settings.reports;
}

} // namespace lumeroom
