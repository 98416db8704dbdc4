#include "base/DefaultsFile.h"

#include "base/LocalTime.h"
#include "base/Log.h"
#include "base/PropertyList.h"
#include "base/PropertyListLimits.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <utility>

namespace lumeroom {

namespace fs = std::filesystem;

namespace {

class Descriptor {
public:
    Descriptor(const fs::path& path, int flags)
        : m_descriptor(::open(path.c_str(), flags | O_CLOEXEC, 0600))
    {
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }
    /// Closes now, so that an error of the last write shows.
    bool close() { return ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor;
};

std::string systemError()
{
    return std::strerror(errno);
}

/// The whole file, or why it cannot be read. A missing file is neither.
struct Contents {
    Value::Data bytes;
    std::string error;
    bool exists = true;
};

Contents readWhole(const fs::path& path)
{
    Contents contents;
    const Descriptor file(
        path, O_RDONLY | O_NONBLOCK); // a pipe come just now would keep it waiting
    if (!file.isOpen()) {
        contents.exists = errno != ENOENT;
        contents.error = contents.exists ? systemError() : "";
        return contents;
    }
    std::array<std::uint8_t, 65536> buffer;
    while (contents.bytes.size() <= propertylist::kLargestBytes) {
        const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            contents.error = systemError();
        if (count <= 0)
            return contents;
        contents.bytes.insert(contents.bytes.end(), buffer.begin(), buffer.begin() + count);
    }
    return contents;
}

bool writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// A settings file that is a link stays one: what it points to is replaced, or made.
fs::path resolved(const fs::path& path)
{
    std::error_code error;
    const fs::path whole = fs::absolute(path, error);
    fs::path target = error ? path : whole;
    constexpr int kMostLinks = 40; // as many as the system follows
    for (int links = 0; links < kMostLinks; ++links) {
        const fs::path next = fs::read_symlink(target, error);
        if (error)
            return target;
        target = target.parent_path() / next;
    }
    return path;
}

/// The process that left a temporary file of this name behind, if that is what it is.
std::optional<pid_t> writerOf(std::string_view name, std::string_view prefix)
{
    if (!name.starts_with(prefix))
        return {};
    name.remove_prefix(prefix.size());
    pid_t process = 0;
    const auto result = std::from_chars(name.data(), name.data() + name.size(), process);
    const bool whole = result.ec == std::errc() && result.ptr == name.data() + name.size();
    return whole && process > 0 ? std::optional(process) : std::nullopt;
}

constexpr std::string_view kTemporary = ".new-";

} // namespace

DefaultsFile::DefaultsFile(const fs::path& path, TimePoint now, Log& log)
    : m_path(resolved(path))
    , m_now(now)
    , m_log(log)
{
}

std::string DefaultsFile::reasonToRefuse(const fs::path& path)
{
    std::error_code error;
    switch (fs::status(path, error).type()) {
    case fs::file_type::regular:
        return {};
    case fs::file_type::not_found:
        return fs::is_symlink(fs::symlink_status(path, error)) ? "it is a link to nothing" : "";
    case fs::file_type::directory:
        return "it is a folder";
    case fs::file_type::fifo:
        return "it is a pipe";
    case fs::file_type::socket:
        return "it is a socket";
    case fs::file_type::block:
    case fs::file_type::character:
        return "it is a device";
    default:
        return error.message();
    }
}

bool DefaultsFile::isInUse(const fs::path& path)
{
    return DefaultsLock(resolved(path)).isTaken();
}

Value::Dictionary DefaultsFile::read()
{
    const std::string noFile = reasonToRefuse(m_path);
    if (noFile.empty())
        m_lock.emplace(m_path);
    m_mayWrite = m_lock && !m_lock->isTaken();
    if (!m_mayWrite) {
        m_log.line("changes made now will not be stored in {}: {}", m_path.string(),
            noFile.empty() ? "another program has it in use" : noFile);
    }
    if (!noFile.empty())
        return {};
    if (m_mayWrite)
        removeLeftovers();
    const Contents contents = readWhole(m_path);
    if (!contents.exists)
        return {};
    std::string reason = contents.error;
    if (reason.empty()) {
        auto value = propertylist::parse(contents.bytes, &reason);
        if (value) {
            if (auto* dictionary = value->as<Value::Dictionary>())
                return std::move(*dictionary);
            reason = "it is a property list, but no dictionary";
        }
    }
    if (m_mayWrite)
        setAside(reason);
    return {};
}

/// A program that is killed while it writes leaves its temporary file behind.
void DefaultsFile::removeLeftovers() const
{
    const std::string prefix = m_path.filename().string() + std::string(kTemporary);
    std::error_code error;
    for (auto entry = fs::directory_iterator(m_path.parent_path(), error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto writer = writerOf(entry->path().filename().string(), prefix);
        std::error_code ignored;
        if (writer && ::kill(*writer, 0) != 0 && errno == ESRCH
            && entry->symlink_status(ignored).type() == fs::file_type::regular)
            fs::remove(entry->path(), ignored);
    }
}

void DefaultsFile::setAside(const std::string& reason)
{
    fs::path aside = m_path;
    aside += ".unreadable-" + timestampText(m_now);
    std::error_code error;
    for (int n = 2; fs::exists(fs::symlink_status(aside, error)); ++n) {
        aside = m_path;
        aside += ".unreadable-" + timestampText(m_now) + "-" + std::to_string(n);
    }
    fs::rename(m_path, aside, error);
    if (!error) {
        m_log.line("the settings in {} cannot be read ({}); they are kept as {} and the program "
                   "starts with new ones",
            m_path.string(), reason, aside.string());
        return;
    }
    m_mayWrite = false;
    m_log.line("the settings in {} cannot be read ({}) nor set aside ({}); they are left alone, "
               "and changes made now will not be stored",
        m_path.string(), reason, error.message());
}

bool DefaultsFile::write(const std::string& text)
{
    if (!m_mayWrite)
        return false;
    const std::string error = replaceWith(text);
    if (error.empty()) {
        if (m_failureLogged)
            m_log.line("the settings are stored in {} again", m_path.string());
        m_failureLogged = false;
        return true;
    }
    if (!m_failureLogged)
        m_log.line("cannot store the settings in {}: {}", m_path.string(), error);
    m_failureLogged = true;
    return false;
}

/// The error in words, or nothing.
std::string DefaultsFile::replaceWith(const std::string& text) const
{
    std::error_code error;
    fs::create_directories(m_path.parent_path(), error); // if it fails, opening tells
    fs::path temporary = m_path;
    temporary += fmt::format("{}{}", kTemporary, ::getpid());

    Descriptor file(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (!file.isOpen())
        return systemError();
    const bool written = writeAll(file.get(), text) && ::fsync(file.get()) == 0 && file.close();
    if (!written || ::rename(temporary.c_str(), m_path.c_str()) != 0) {
        std::string reason = systemError();
        ::unlink(temporary.c_str());
        return reason;
    }
    const Descriptor directory(m_path.parent_path(), O_RDONLY | O_DIRECTORY);
    if (directory.isOpen())
        ::fsync(directory.get());
    return {};
}

} // namespace lumeroom
