#pragma once

#include "base/DefaultsLock.h"
#include "base/Value.h"

namespace lumeroom {

class Log;

/// The file that settings are stored in. Main thread only.
class DefaultsFile {
public:
    /// `now` names a file that has to be set aside.
    DefaultsFile(const std::filesystem::path& path, TimePoint now, Log& log);

    /// Why settings cannot be kept in what is at this path: a folder, a pipe, a link to nothing.
    /// Empty for a regular file, a link to one, and where there is nothing yet.
    static std::string reasonToRefuse(const std::filesystem::path& path);
    /// Another program has the file now.
    static bool isInUse(const std::filesystem::path& path);

    /// What the file holds; nothing if there is none yet. A file that cannot be read is set aside.
    /// What is no file, or belongs to another program, is left alone, and never written.
    Value::Dictionary read();
    /// Writes the file whole: to a temporary file beside it, synced, renamed over it. A failure
    /// leaves the old file as it was, and is logged once until a write succeeds again.
    bool write(const std::string& text);

private:
    void setAside(const std::string& reason);
    void removeLeftovers() const;
    std::string replaceWith(const std::string& text) const;

    std::filesystem::path m_path;
    std::optional<DefaultsLock> m_lock; ///< none on what is no file
    TimePoint m_now;
    Log& m_log;
    bool m_mayWrite = true;
    bool m_failureLogged = false;
};

} // namespace lumeroom
