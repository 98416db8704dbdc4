#include "engine/NetworkComplaints.h"

#include "base/Log.h"

#include <algorithm>
#include <cstring>

namespace lumeroom {

void NetworkComplaints::failed(const std::string& what, int error)
{
    const std::lock_guard lock(m_mutex);
    if (!isKnown(error)) {
        m_log.line("cannot send to {}: {} (said once; the program goes on trying)", what,
            std::strerror(error));
    }
    m_failing[what] = error;
    m_any = true;
}

void NetworkComplaints::clear(const std::string& what)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_failing.find(what);
    if (found == m_failing.end())
        return;
    const int error = found->second;
    m_failing.erase(found);
    m_any = !m_failing.empty();
    if (!isKnown(error))
        m_log.line("sending to {} works again", what);
}

bool NetworkComplaints::isKnown(int error) const
{
    return std::any_of(m_failing.begin(), m_failing.end(),
        [error](const auto& entry) { return entry.second == error; });
}

} // namespace lumeroom
