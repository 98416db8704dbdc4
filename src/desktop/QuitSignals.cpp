#include "desktop/QuitSignals.h"

#include <QSocketNotifier>

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

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
    ::eventfd_write(theDescriptor, 1);
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
    for (std::size_t i = 0; i < kQuittingSignals.size(); ++i) {
        ::sigaction(kQuittingSignals[i], nullptr, &m_before[i]);
        if (m_before[i].sa_handler == SIG_IGN)
            continue; // as nohup wishes
        struct sigaction note = {};
        note.sa_handler = noteSignal;
        note.sa_flags = SA_RESTART;
        ::sigaction(kQuittingSignals[i], &note, nullptr);
    }
}

QuitSignals::~QuitSignals()
{
    for (std::size_t i = 0; i < kQuittingSignals.size(); ++i)
        ::sigaction(kQuittingSignals[i], &m_before[i], nullptr);
    theDescriptor = -1;
    ::close(m_descriptor);
}

} // namespace lumeroom
