#include "desktop/QuitSignals.h"

#include <QSocketNotifier>

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace lumeroom {

QuitSignals::QuitSignals()
{
    // Blocked in every thread, they arrive on the descriptor alone.
    sigset_t quitting;
    sigemptyset(&quitting);
    sigaddset(&quitting, SIGTERM);
    sigaddset(&quitting, SIGINT);
    pthread_sigmask(SIG_BLOCK, &quitting, nullptr);
    m_descriptor = ::signalfd(-1, &quitting, SFD_CLOEXEC | SFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info;
        [[maybe_unused]] const auto count = ::read(m_descriptor, &info, sizeof info);
        if (m_quit)
            m_quit();
    });
}

QuitSignals::~QuitSignals()
{
    ::close(m_descriptor);
}

} // namespace lumeroom
