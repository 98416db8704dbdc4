#include "engine/SystemArpTable.h"

#include "engine/AsyncUdpSocket.h"
#include "engine/HostResolver.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <netdb.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>

namespace lumeroom {

namespace {

constexpr std::size_t kMostOutput = 1 << 20;
constexpr int kLaunchFailed = 127; // as a shell has it
constexpr int kLookForStopMilliseconds = 100;

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
    stop();
}

void SystemArpTable::stop()
{
    m_stopping = true;
    if (m_thread.joinable())
        m_thread.join();
    m_stopping = false;
}

void SystemArpTable::read(std::function<void(Result)> done)
{
    stop();
    m_thread = std::thread([this, done = std::move(done)] {
        auto result = std::make_shared<Result>(readTable());
        m_runLoop.post(m_lifeline.guard([done, result] { done(*result); }));
    });
}

ArpTable::Result SystemArpTable::readTable()
{
    for (const std::string& command : m_sources.commands) {
        if (::access(command.c_str(), X_OK) == 0)
            return runCommand(command);
    }
    std::ifstream file(m_sources.kernelTable);
    std::ostringstream table;
    table << file.rdbuf();
    return {0, arpLinesFromKernelTable(table.str(), [this](const std::string& address) {
                return m_stopping ? std::string() : m_sources.nameOf(address);
            })};
}

ArpTable::Result SystemArpTable::runCommand(const std::string& command)
{
    const Child child = launch(command);
    if (child.process < 0)
        return {kLaunchFailed, {}};
    Result result;
    std::array<char, 4096> buffer;
    while (!m_stopping) {
        pollfd waiting{child.output, POLLIN, 0};
        if (::poll(&waiting, 1, kLookForStopMilliseconds) <= 0)
            continue;
        const ssize_t count = ::read(child.output, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        if (result.output.size() < kMostOutput)
            result.output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    if (m_stopping)
        ::kill(child.process, SIGKILL);
    ::close(child.output);
    int status = 0;
    while (::waitpid(child.process, &status, 0) < 0 && errno == EINTR) { }
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
