#include "desktop/StandardErrorPipe.h"

#include "base/RunLoop.h"
#include "base/Utf8.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace lumeroom {

StandardErrorPipe::StandardErrorPipe(
    RunLoop& runLoop, std::function<void(std::string text)> receive, bool passOn)
    : m_runLoop(runLoop)
    , m_receive(std::move(receive))
    , m_passOn(passOn)
    , m_alive(std::make_shared<bool>(true))
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return; // the log stays where it is
    m_original = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
    m_pipeReadHandle = ends[0];
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[1]);
    m_reader = std::thread([this] { readPipe(); });
}

StandardErrorPipe::~StandardErrorPipe()
{
    *m_alive = false;
    if (!m_reader.joinable())
        return;
    // This closes the pipe's last writing end, and the reader comes to the end of the file.
    ::dup2(m_original, STDERR_FILENO);
    m_reader.join();
    ::close(m_pipeReadHandle);
    ::close(m_original);
}

void StandardErrorPipe::readPipe()
{
    std::array<char, 4096> buffer;
    std::string text; // begins with what an earlier read left of a character
    for (;;) {
        const ssize_t count = ::read(m_pipeReadHandle, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return;
        if (m_passOn && m_original >= 0) {
            [[maybe_unused]] const auto copied
                = ::write(m_original, buffer.data(), static_cast<std::size_t>(count));
        }
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
