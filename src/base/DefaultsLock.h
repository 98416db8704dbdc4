#pragma once

#include <filesystem>

namespace lumeroom {

/// Keeps a settings file to one program at a time, by a lock on a file beside it. The system lets
/// go of it however the program ends; the file stays, as taking it away could part two programs
/// that wait for it.
class DefaultsLock {
public:
    explicit DefaultsLock(const std::filesystem::path& settings);
    ~DefaultsLock();
    DefaultsLock(const DefaultsLock&) = delete;
    DefaultsLock& operator=(const DefaultsLock&) = delete;

    /// Another program has the lock. Where there can be none, as in a folder that cannot be written
    /// in, nobody is kept out.
    bool isTaken() const { return m_taken; }

private:
    int m_descriptor;
    bool m_taken = false;
};

} // namespace lumeroom
