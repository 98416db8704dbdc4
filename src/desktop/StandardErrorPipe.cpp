#include "desktop/StandardErrorPipe.h"

#include "base/RunLoop.h"
#include "base/Utf8.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace lumeroom {

StandardErrorPipe::StandardErrorPipe(
    RunLoop& runLoop, std::function<void(std::string text)> receive, bool passOn)
    : m_runLoop(runLoop)
    , m_receive(std::move(receive))
    , m_passOn(passOn)
    , m_original(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
    , m_ending(::eventfd(0, EFD_CLOEXEC))
    , m_alive(std::make_shared<bool>(true))
{
    int ends[2];
    if (m_original < 0 || m_ending < 0 || ::pipe2(ends, O_CLOEXEC) != 0)
        return; // the log stays where it is
    m_pipeReadHandle = ends[0];
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[1]);
    m_reader = std::thread([this] { readPipe(); });
}

StandardErrorPipe::~StandardErrorPipe()
{
    *m_alive = false;
    if (m_reader.joinable()) {
        ::dup2(m_original, STDERR_FILENO);
        // Not the end of the file: a program that was started from here may hold the pipe open.
        ::eventfd_write(m_ending, 1);
        m_reader.join();
    }
    for (const int descriptor : {m_pipeReadHandle, m_ending, m_original}) {
        if (descriptor >= 0)
            ::close(descriptor);
    }
}

void StandardErrorPipe::writePast(std::string_view text) const
{
    [[maybe_unused]] const auto written = ::write(m_original, text.data(), text.size());
}

/// Whether there is something to read. Waits for it until the end.
bool StandardErrorPipe::waitForText() const
{
    std::array<pollfd, 2> awaited{pollfd{m_pipeReadHandle, POLLIN, 0}, pollfd{m_ending, POLLIN, 0}};
    while (::poll(awaited.data(), awaited.size(), -1) < 0) {
        if (errno != EINTR)
            return false;
    }
    return (awaited[0].revents & POLLIN) != 0;
}

void StandardErrorPipe::readPipe()
{
    std::array<char, 4096> buffer;
    std::string text; // begins with what an earlier read left of a character
    while (waitForText()) {
        const ssize_t count = ::read(m_pipeReadHandle, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return;
        if (m_passOn)
            writePast({buffer.data(), static_cast<std::size_t>(count)});
        text.append(buffer.data(), static_cast<std::size_t>(count));
        const std::size_t whole = text.size() - incompleteTail(text);
        m_runLoop.post([alive = m_alive, receive = m_receive, now = text.substr(0, whole)] {
            if (*alive)
                receive(now);
        });
        text.erase(0, whole);
    }
}

} // namespace lumeroom
