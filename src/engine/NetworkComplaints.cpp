#include "engine/NetworkComplaints.h"

#include "base/Log.h"

#include <algorithm>
#include <cstring>

namespace lumeroom {

namespace {
constexpr std::size_t kMostRemembered = 1000; // destinations
}

void NetworkComplaints::readFailed(int error)
{
    m_log.line("Error in recvfrom() function: {}", std::strerror(error));
}

void NetworkComplaints::failed(const std::string& what, const std::string& reason)
{
    const std::lock_guard lock(m_mutex);
    if (!isKnown(reason))
        m_log.line("cannot send to {}: {} (said once; the program goes on trying)", what, reason);
    if (m_failing.size() >= kMostRemembered)
        m_failing.erase(m_failing.begin());
    m_failing[what] = reason;
    m_any = true;
}

void NetworkComplaints::clear(const std::string& what)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_failing.find(what);
    if (found == m_failing.end())
        return;
    const std::string reason = found->second;
    m_failing.erase(found);
    m_any = !m_failing.empty();
    if (!isKnown(reason))
        m_log.line("sending to {} works again", what);
}

bool NetworkComplaints::isKnown(const std::string& reason) const
{
    return std::any_of(m_failing.begin(), m_failing.end(),
        [&](const auto& entry) { return entry.second == reason; });
}

} // namespace lumeroom
