#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace lumeroom {

class RunLoop;

/// Takes over the standard error stream: what is written to it goes to the console view, as text,
/// and only if wished also to where it went before.
class StandardErrorPipe {
public:
    /// `receive` is called on the main thread with whole UTF-8 characters.
    StandardErrorPipe(
        RunLoop& runLoop, std::function<void(std::string text)> receive, bool passOn = false);
    /// Puts the stream back. What was written until then has been passed on.
    ~StandardErrorPipe();
    StandardErrorPipe(const StandardErrorPipe&) = delete;
    StandardErrorPipe& operator=(const StandardErrorPipe&) = delete;

    /// Writes to where the stream went before, and only there.
    void writePast(std::string_view text) const;

private:
    void readPipe();
    bool waitForText() const;

    RunLoop& m_runLoop;
    std::function<void(std::string text)> m_receive;
    bool m_passOn;
    int m_original; ///< where the stream went before
    int m_ending; ///< tells the reader to stop
    int m_pipeReadHandle = -1;
    std::shared_ptr<bool> m_alive;
    std::thread m_reader;
};

} // namespace lumeroom
