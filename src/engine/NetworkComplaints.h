#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>

namespace lumeroom {

class Log;

/// Says once, for all sockets, what keeps datagrams from leaving, and once when it has passed.
class NetworkComplaints {
public:
    explicit NetworkComplaints(Log& log)
        : m_log(log)
    {
    }

    /// `what` is the destination, or what else could not be used.
    void failed(const std::string& what, const std::string& reason);
    /// A socket ended with this number of the system's; another takes its place.
    void readFailed(int error);
    void succeeded(const std::string& what)
    {
        if (m_any)
            clear(what);
    }

private:
    void clear(const std::string& what);
    bool isKnown(const std::string& reason) const;

    Log& m_log;
    std::atomic<bool> m_any = false; ///< keeps the good case free of the lock
    std::mutex m_mutex;
    std::map<std::string, std::string> m_failing; ///< with the reason
};

} // namespace lumeroom
