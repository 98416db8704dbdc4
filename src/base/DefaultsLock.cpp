#include "base/DefaultsLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace lumeroom {

DefaultsLock::DefaultsLock(const std::filesystem::path& settings)
{
    std::error_code error;
    std::filesystem::create_directories(settings.parent_path(), error); // else opening fails
    const std::string beside = settings.string() + ".lock";
    m_descriptor
        = ::open(beside.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    if (m_descriptor >= 0)
        m_taken = ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

DefaultsLock::~DefaultsLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace lumeroom
