#include "engine/NetworkComplaints.h"

#include "base/Log.h"
#include "base/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace lumeroom {

namespace {

constexpr std::size_t kMostRemembered = 1000; // destinations
constexpr std::size_t kLongestName = 64; // of a host, in a sentence

constexpr int kUnknownHost = -1; // beside the system's numbers

std::string reason(int error)
{
    return error == kUnknownHost ? "no such host" : std::strerror(error);
}

std::string inPlainWords(const std::string& what, int error)
{
    switch (error) {
    case ENETUNREACH:
    case ENETDOWN:
        return "This computer is not connected to a network.";
    case EACCES:
    case EPERM:
        return "The system's firewall does not let the program send.";
    case EHOSTUNREACH:
    case EHOSTDOWN:
        return "The network finds no way to the address.";
    case kUnknownHost:
        return "There is no computer of the name " + wellFormedUtf8(what.substr(0, kLongestName))
            + (what.size() > kLongestName ? "..." : ".");
    default:
        return "Sending fails: " + reason(error) + ".";
    }
}

} // namespace

void NetworkComplaints::readFailed(int error)
{
    m_log.line("Error in recvfrom() function: {}", std::strerror(error));
}

void NetworkComplaints::failed(const std::string& what, int error)
{
    const std::lock_guard lock(m_mutex);
    if (!isKnown(error)) {
        m_log.line(
            "cannot send to {}: {} (said once; the program goes on trying)", what, reason(error));
    }
    if (m_failing.size() >= kMostRemembered)
        m_failing.erase(m_failing.begin());
    m_failing[what] = {error, ++m_failures};
    m_any = true;
}

void NetworkComplaints::hostIsUnknown(const std::string& host)
{
    failed(host, kUnknownHost);
}

std::string NetworkComplaints::latest() const
{
    const std::lock_guard lock(m_mutex);
    const auto last = std::max_element(m_failing.begin(), m_failing.end(),
        [](const auto& a, const auto& b) { return a.second.turn < b.second.turn; });
    return last == m_failing.end() ? std::string() : inPlainWords(last->first, last->second.error);
}

void NetworkComplaints::forget()
{
    const std::lock_guard lock(m_mutex);
    m_failing.clear();
    m_any = false;
}

void NetworkComplaints::clear(const std::string& what)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_failing.find(what);
    if (found == m_failing.end())
        return;
    const int error = found->second.error;
    m_failing.erase(found);
    m_any = !m_failing.empty();
    if (!isKnown(error))
        m_log.line("sending to {} works again", what);
}

bool NetworkComplaints::isKnown(int error) const
{
    return std::any_of(m_failing.begin(), m_failing.end(),
        [error](const auto& entry) { return entry.second.error == error; });
}

} // namespace lumeroom
