#include "base/Log.h"

#include "base/LogLine.h"

#include <unistd.h>

#include <chrono>
#include <ctime>
#include <string>

namespace lumeroom {

namespace {

void writeToStandardError(std::string_view text)
{
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto milliseconds
        = duration_cast<std::chrono::milliseconds>(now.time_since_epoch()) % 1000;
    const std::string line = fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}.{:03} {}\n",
        local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
        local.tm_sec, milliseconds.count(), text);
    // Nothing is left to tell if the log itself cannot be written.
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
}

} // namespace

Log::Log()
    : Log(writeToStandardError)
{
}

Log::Log(Sink sink)
    : m_sink(std::move(sink))
{
}

void Log::setVerbositySource(std::function<int()> verbosity)
{
    m_verbosity = std::move(verbosity);
}

bool Log::shows(int level) const
{
    return m_verbosity && m_verbosity() >= level;
}

void Log::write(std::string_view text)
{
    const std::string line = logLine(text);
    const std::lock_guard lock(m_mutex);
    m_sink(line);
}

} // namespace lumeroom
