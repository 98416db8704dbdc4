#include "engine/SystemArpTable.h"

#include "engine/AsyncUdpSocket.h"
#include "engine/HostResolver.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <netdb.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <mutex>
#include <sstream>
#include <thread>
#include <utility>

namespace lumeroom {

namespace {

constexpr std::size_t kMostOutput = 1 << 20;
constexpr int kLaunchFailed = 127; // as a shell has it

std::string nameFromSystem(const std::string& address)
{
    const auto known = addressFromLiteral(address, 0);
    std::array<char, NI_MAXHOST> name{};
    if (!known
        || ::getnameinfo(reinterpret_cast<const sockaddr*>(known->bytes.data()), known->length,
               name.data(), name.size(), nullptr, 0, NI_NAMEREQD)
            != 0)
        return {};
    return name.data();
}

/// A started command and the reading end of its standard output.
struct Child {
    pid_t process = -1;
    int output = -1;
};

Child launch(const std::string& command)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string program = command;
    std::string argument = "-a";
    std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
    Child child;
    const int failed = ::posix_spawn(
        &child.process, command.c_str(), &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    if (failed != 0) {
        ::close(ends[0]);
        return {};
    }
    child.output = ends[0];
    return child;
}

} // namespace

/// One reading on a thread of its own, which may outlive the table: a name server that is silent
/// holds it up and cannot be hurried.
class SystemArpTable::Reading : public std::enable_shared_from_this<Reading> {
public:
    using Done = std::function<void(const Result&)>;

    Reading(RunLoop& runLoop, Sources sources, Done done)
        : m_runLoop(runLoop)
        , m_sources(std::move(sources))
        , m_done(std::move(done))
    {
    }
    void start()
    {
        std::thread([self = shared_from_this()] { self->finish(self->readTable()); }).detach();
    }
    /// Once this returns the run loop is left alone.
    void breakOff();

private:
    bool isBrokenOff()
    {
        const std::lock_guard lock(m_mutex);
        return m_brokenOff;
    }
    Result readTable();
    Result runCommand(const std::string& command);
    bool launchUnlessBrokenOff(const std::string& command);
    void finish(const Result& result);

    RunLoop& m_runLoop;
    const Sources m_sources;
    const Done m_done;
    std::mutex m_mutex;
    bool m_brokenOff = false;
    Child m_child;
};

SystemArpTable::SystemArpTable(RunLoop& runLoop)
    : SystemArpTable(runLoop, {.nameOf = nameFromSystem})
{
}

SystemArpTable::SystemArpTable(RunLoop& runLoop, Sources sources)
    : m_runLoop(runLoop)
    , m_sources(std::move(sources))
{
}

SystemArpTable::~SystemArpTable()
{
    if (m_reading)
        m_reading->breakOff();
}

void SystemArpTable::read(std::function<void(Result)> done)
{
    m_waiting.push_back(std::move(done));
    if (m_reading)
        return;
    m_reading = std::make_shared<Reading>(m_runLoop, m_sources, [this](const Result& result) {
        m_runLoop.post(m_lifeline.guard([this, result] { finish(result); }));
    });
    m_reading->start();
}

void SystemArpTable::finish(const Result& result)
{
    m_reading->breakOff(); // its thread may not have left the run loop yet
    m_reading.reset();
    for (const auto& done : std::exchange(m_waiting, {}))
        done(result);
}

void SystemArpTable::Reading::breakOff()
{
    const std::lock_guard lock(m_mutex);
    m_brokenOff = true;
    if (m_child.process > 0)
        ::kill(m_child.process, SIGKILL);
}

void SystemArpTable::Reading::finish(const Result& result)
{
    const std::lock_guard lock(m_mutex); // the table stays while this is held
    if (!m_brokenOff)
        m_done(result);
}

ArpTable::Result SystemArpTable::Reading::readTable()
{
    for (const std::string& command : m_sources.commands) {
        if (::access(command.c_str(), X_OK) == 0)
            return runCommand(command);
    }
    std::ifstream file(m_sources.kernelTable);
    std::ostringstream table;
    table << file.rdbuf();
    return {0, arpLinesFromKernelTable(table.str(), [this](const std::string& address) {
                return isBrokenOff() ? std::string() : m_sources.nameOf(address);
            })};
}

bool SystemArpTable::Reading::launchUnlessBrokenOff(const std::string& command)
{
    const std::lock_guard lock(m_mutex);
    if (!m_brokenOff)
        m_child = launch(command);
    return m_child.process > 0;
}

ArpTable::Result SystemArpTable::Reading::runCommand(const std::string& command)
{
    if (!launchUnlessBrokenOff(command))
        return {kLaunchFailed, {}};
    Result result;
    std::array<char, 4096> buffer;
    for (;;) {
        const ssize_t count = ::read(m_child.output, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        if (result.output.size() < kMostOutput)
            result.output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    ::close(m_child.output);
    const pid_t process = m_child.process;
    siginfo_t ended{};
    while (::waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOWAIT) < 0
        && errno == EINTR) { }
    const std::lock_guard lock(m_mutex); // from here its number may be another's
    m_child.process = -1;
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) { }
    result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
    return result;
}

std::string arpLinesFromKernelTable(
    const std::string& table, const std::function<std::string(const std::string& address)>& nameOf)
{
    std::istringstream lines(table);
    std::string line;
    std::getline(lines, line); // the column titles
    std::string output;
    while (std::getline(lines, line)) {
        std::istringstream columns(line);
        std::string address, type, flags, hardware, mask, device;
        columns >> address >> type >> flags >> hardware >> mask >> device;
        if (device.empty())
            continue;
        const std::string name = nameOf(address);
        const bool answered = flags != "0x0";
        output += fmt::format("{} ({}) at {} on {}\n", name.empty() ? "?" : name, address,
            answered ? hardware + " [ether]" : "<incomplete>", device);
    }
    return output;
}

} // namespace lumeroom
