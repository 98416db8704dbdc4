#pragma once

#include "base/Value.h"

#include <filesystem>

namespace lumeroom {

class Log;

/// The file that settings are stored in. Main thread only.
class DefaultsFile {
public:
    /// `now` names a file that has to be set aside.
    DefaultsFile(const std::filesystem::path& path, TimePoint now, Log& log);

    /// What the file holds; nothing if there is none yet. One that cannot be read is set aside.
    Value::Dictionary read();
    /// Writes the file whole: to a temporary file beside it, synced, renamed over it. A failure
    /// leaves the old file as it was, and is logged once until a write succeeds again.
    bool write(const std::string& text);

private:
    void setAside(const std::string& reason);
    std::string replaceWith(const std::string& text) const;

    std::filesystem::path m_path;
    TimePoint m_now;
    Log& m_log;
    bool m_mayWrite = true;
    bool m_failureLogged = false;
};

} // namespace lumeroom
