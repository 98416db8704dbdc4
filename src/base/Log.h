#pragma once

#include <fmt/core.h>

#include <functional>
#include <mutex>
#include <string_view>

namespace lumeroom {

/// The program's log: plain lines to the standard error stream, or to another sink.
/// Any thread may log.
class Log {
public:
    using Sink = std::function<void(std::string_view line)>;

    /// Writes to the standard error stream, each line with the local time before it.
    Log();
    explicit Log(Sink sink);

    /// Where the level comes from; read anew at each guarded site. Without it the level is 0.
    void setVerbositySource(std::function<int()> verbosity);
    /// Guards a site: whether lines of this level (1 operations, 2 details, 3 every event) show.
    bool shows(int level) const;

    /// An unconditional line. Ask `shows` first where the line has a level.
    template <typename... Arguments>
    void line(fmt::format_string<Arguments...> text, Arguments&&... arguments)
    {
        write(fmt::format(text, std::forward<Arguments>(arguments)...));
    }

private:
    void write(std::string_view text);

    Sink m_sink;
    std::function<int()> m_verbosity;
    std::mutex m_mutex;
};

} // namespace lumeroom
