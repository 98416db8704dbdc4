#include "desktop/QuitSignals.h"

#include <QSocketNotifier>

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace lumeroom {

namespace {

sigset_t quittingSignals()
{
    sigset_t quitting;
    sigemptyset(&quitting);
    sigaddset(&quitting, SIGTERM);
    sigaddset(&quitting, SIGINT);
    return quitting;
}

} // namespace

void QuitSignals::hold()
{
    const sigset_t quitting = quittingSignals();
    pthread_sigmask(SIG_BLOCK, &quitting, nullptr);
}

QuitSignals::QuitSignals()
{
    // Held back in every thread, they arrive on the descriptor alone.
    const sigset_t quitting = quittingSignals();
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
