#include "Control.h"
#include "LampFactory.h"
#include "Options.h"

#include <fmt/core.h>
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <fstream>
#include <iostream>

using namespace virtual_lamps;

namespace {

constexpr int kBadUsage = 2;
constexpr std::size_t kUsualZones = 16;

/// Where the traffic log goes; nothing without one.
class LogFile {
public:
    bool open(const std::string& name)
    {
        if (name.empty() || name == "-") {
            m_stream = name.empty() ? nullptr : &std::cout;
            return true;
        }
        m_file.open(name);
        m_stream = &m_file;
        return m_file.is_open();
    }
    std::function<void(const std::string&)> writer()
    {
        if (!m_stream)
            return {};
        return [this](const std::string& line) { *m_stream << line << std::endl; };
    }

private:
    std::ofstream m_file;
    std::ostream* m_stream = nullptr;
};

std::unique_ptr<VirtualLamp> makeLamp(const Options& options, unsigned number)
{
    const auto zones = options.zones.find(number);
    const std::uint32_t product = options.products[(number - 1) % options.products.size()];
    auto lamp = std::make_unique<VirtualLamp>(macAddressForNumber(number), productWithID(product),
        zones == options.zones.end() ? kUsualZones : zones->second);
    lamp->label = number <= options.labels.size() ? options.labels[number - 1]
                                                  : fmt::format("Lamp {}", number);
    for (const Assignment& group : options.groups) {
        if (group.appliesTo(number))
            lamp->group = membershipNamed(group.name);
    }
    for (const Assignment& location : options.locations) {
        if (location.appliesTo(number))
            lamp->location = membershipNamed(location.name);
    }
    for (unsigned bit = 0; bit < options.tags.size() && bit < 64; ++bit) {
        if (options.tags[bit].appliesTo(number))
            putTag(*lamp, options.tags[bit].name, bit);
    }
    return lamp;
}

bool addLamps(LampNetwork& network, const Options& options)
{
    for (unsigned number = 1; number <= options.count; ++number) {
        const std::string address = options.addresses.empty()
            ? *addressBehind(options.firstAddress, number - 1)
            : options.addresses[number - 1];
        std::string error;
        if (!network.add(makeLamp(options, number), address, error)) {
            std::cerr << "virtual-lamps: " << error << std::endl;
            return false;
        }
    }
    return true;
}

void scheduleEvents(LampNetwork& network, const Options& options)
{
    for (const Event& event : options.events) {
        network.schedule(event.after, [&network, event] {
            std::string error;
            if (event.newAddress.empty())
                network.setSilent(event.lamp - 1, true);
            else if (!network.moveTo(event.lamp - 1, event.newAddress, error))
                std::cerr << "virtual-lamps: " << error << std::endl;
        });
    }
}

void tellWhatIsThere(LampNetwork& network)
{
    for (std::size_t i = 0; i < network.count(); ++i) {
        network.withLamp(i, [&](VirtualLamp& lamp, Time) {
            std::cerr << fmt::format("{:3}  {}  {:15}  product {:3}  {}\n", i + 1,
                hexText(lamp.mac()), network.address(i), lamp.product().id, lamp.label);
        });
    }
}

/// Until a signal to end, or the end of the commands.
void serve(LampNetwork& network, bool control, int signals)
{
    pollfd waiting[2] = {{signals, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    for (std::string line;;) {
        ::poll(waiting, control ? 2 : 1, -1);
        if (waiting[0].revents != 0)
            return;
        if (!std::getline(std::cin, line) || line == "quit")
            return;
        std::cout << runCommand(network, line) << std::endl;
        // What came in together is in the stream's buffer already.
        while (std::cin.rdbuf()->in_avail() > 0 && std::getline(std::cin, line)) {
            if (line == "quit")
                return;
            std::cout << runCommand(network, line) << std::endl;
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    const auto [options, help, error]
        = parseOptions(std::vector<std::string>(argv + 1, argv + argc));
    if (!error.empty()) {
        std::cerr << "virtual-lamps: " << error << "\nTry 'virtual-lamps --help'." << std::endl;
        return kBadUsage;
    }
    if (!help.empty()) {
        std::cout << help;
        return 0;
    }
    // Before the network's thread starts, so that it too leaves these signals alone.
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGINT);
    sigaddset(&ending, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);

    LogFile log;
    if (!log.open(options.logFile)) {
        std::cerr << "virtual-lamps: cannot write " << options.logFile << std::endl;
        return 1;
    }
    LampNetwork network({options.faults, options.port, options.broadcast, log.writer()});
    std::string problem;
    if (!addLamps(network, options))
        return 1;
    if (!network.start(problem)) {
        std::cerr << "virtual-lamps: " << problem << std::endl;
        return 1;
    }
    scheduleEvents(network, options);
    tellWhatIsThere(network);
    serve(network, options.control, ::signalfd(-1, &ending, SFD_CLOEXEC));
    return 0;
}
