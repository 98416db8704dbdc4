#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>

namespace lumeroom {

class Log;

/// Says once, for all sockets, what keeps datagrams from leaving, and once when it has passed.
/// Any thread may call it.
class NetworkComplaints {
public:
    explicit NetworkComplaints(Log& log)
        : m_log(log)
    {
    }

    /// `what` is the destination, or what else could not be used; `error` the system's number.
    void failed(const std::string& what, int error);
    void hostIsUnknown(const std::string& host);
    /// A socket ended with this number of the system's; another takes its place.
    void readFailed(int error);
    void succeeded(const std::string& what)
    {
        if (m_any)
            clear(what);
    }

    /// The latest that still holds, in a plain sentence of bounded length; empty if there is none.
    std::string latest() const;
    /// Other addresses are spoken to from now on.
    void forget();

private:
    struct Failure {
        int error = 0;
        std::uint64_t turn = 0; ///< among all failures
    };

    void clear(const std::string& what);
    bool isKnown(int error) const;

    Log& m_log;
    std::atomic<bool> m_any = false; ///< keeps the good case free of the lock
    mutable std::mutex m_mutex;
    std::map<std::string, Failure> m_failing; ///< by destination
    std::uint64_t m_failures = 0;
};

} // namespace lumeroom
