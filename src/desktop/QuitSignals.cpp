#include "desktop/QuitSignals.h"

#include <QSocketNotifier>

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace lumeroom {

namespace {

// Closing the terminal is one of them: the settings are saved first.
constexpr std::array kQuittingSignals{SIGTERM, SIGINT, SIGHUP};

std::atomic<int> theDescriptor = -1;
static_assert(std::atomic<int>::is_always_lock_free);

/// May run on any thread, in the middle of anything.
void noteSignal(int)
{
    const int before = errno;
    ::eventfd_write(theDescriptor, 1); // nothing once there is none
    errno = before;
}

} // namespace

// Handlers, for programs that are started from here get back what signals do of themselves; with
// blocked signals and a signal descriptor they would be started deaf.
QuitSignals::QuitSignals()
    : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    auto* notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        eventfd_t count = 0;
        ::eventfd_read(m_descriptor, &count);
        if (m_quit)
            m_quit();
    });
    theDescriptor = m_descriptor;
    for (const int number : kQuittingSignals) {
        struct sigaction action = {};
        ::sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN)
            continue; // as nohup wishes
        action.sa_handler = noteSignal;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}

// The handlers stay: a signal that comes while the rest of the program ends must not cut that
// short.
QuitSignals::~QuitSignals()
{
    theDescriptor = -1;
    ::close(m_descriptor);
}

} // namespace lumeroom
