#include "Options.h"

#include <CLI/CLI.hpp>
#include <fmt/core.h>

#include <algorithm>
#include <charconv>

namespace virtual_lamps {

namespace {

constexpr unsigned kMostLamps = 2000;
constexpr unsigned kMostZones = 82;

/// What is wrong with an argument, in words for the person who typed it.
struct BadOption {
    std::string text;
};

template <typename Number> Number number(std::string_view text, Number least, Number most)
{
    Number value{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || value < least
        || value > most)
        throw BadOption{fmt::format("'{}' is no number from {} to {}", text, least, most)};
    return value;
}

std::vector<std::string> split(const std::string& text, char at)
{
    std::vector<std::string> pieces;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(at, start), text.size());
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

/// The two sides of a mark that has to be there.
std::pair<std::string, std::string> sides(const std::string& text, char mark, const char* form)
{
    const std::size_t at = text.find(mark);
    if (at == std::string::npos)
        throw BadOption{fmt::format("'{}' should read {}", text, form)};
    return {text.substr(0, at), text.substr(at + 1)};
}

unsigned lampNumber(const std::string& text)
{
    return number<unsigned>(text, 1, kMostLamps);
}

/// "Kitchen:1-3,5" or "Kitchen".
Assignment assignment(const std::string& text)
{
    Assignment result;
    const std::size_t colon = text.rfind(':');
    result.name = text.substr(0, colon);
    if (colon == std::string::npos)
        return result;
    for (const std::string& range : split(text.substr(colon + 1), ',')) {
        const auto ends = split(range, '-');
        const unsigned first = lampNumber(ends.front());
        const unsigned last = lampNumber(ends.back());
        for (unsigned lamp = first; lamp <= last; ++lamp)
            result.lamps.insert(lamp);
    }
    return result;
}

Milliseconds secondsFrom(const std::string& text)
{
    return Milliseconds(static_cast<Milliseconds::rep>(number<double>(text, 0, 1e6) * 1000));
}

bool isLoopback(const std::string& address)
{
    return address.starts_with("127.");
}

std::string checkedAddress(const std::string& text)
{
    if (!CLI::ValidIPV4(text).empty())
        throw BadOption{fmt::format("'{}' is no IPv4 address", text)};
    return text;
}

using Take = std::function<void(const std::string& value)>;

/// An option that may be repeated, each time with one value.
void addRepeated(CLI::App& app, const std::string& name, const char* value, const char* description,
    const Take& take)
{
    const auto takeAll = [name, take](const std::vector<std::string>& values) {
        try {
            std::for_each(values.begin(), values.end(), take);
        } catch (const BadOption& bad) {
            throw CLI::ValidationError(name, bad.text);
        }
    };
    app.add_option_function<std::vector<std::string>>(name, takeAll, description)
        ->option_text(value)
        ->allow_extra_args(false);
}

void addLamps(CLI::App& app, Options& options)
{
    app.add_option("--count", options.count, "how many lamps (1)")
        ->option_text("N")
        ->check(CLI::Range(1U, kMostLamps));
    app.add_option("--first-address", options.firstAddress,
           "address of the first, the others follow (127.0.56.1)")
        ->option_text("A")
        ->check(CLI::ValidIPV4);
    app.add_option("--product", options.products, "products, given to the lamps in turn (27)")
        ->option_text("N[,N...]")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::Range(0, 1000000));
    addRepeated(app, "--address", "A", "a lamp at this address; in place of --count",
        [&options](const std::string& text) { options.addresses.push_back(checkedAddress(text)); });
    addRepeated(app, "--label", "TEXT", "names, in the order of the lamps",
        [&options](const std::string& text) { options.labels.push_back(text); });
    const auto addAssignments = [&app](const char* name, std::vector<Assignment>& assignments) {
        addRepeated(app, name, "NAME[:LAMPS]", "lamps as in 1-3,5; without them, all",
            [&assignments](const std::string& text) { assignments.push_back(assignment(text)); });
    };
    addAssignments("--group", options.groups);
    addAssignments("--location", options.locations);
    addAssignments("--tag", options.tags);
    addRepeated(app, "--zones", "LAMP:COUNT", "zones of a multizone lamp, 1 to 82 (16)",
        [&options](const std::string& text) {
            const auto [lamp, zones] = sides(text, ':', "LAMP:COUNT");
            options.zones[lampNumber(lamp)] = number<unsigned>(zones, 1, kMostZones);
        });
}

void addEvents(CLI::App& app, Options& options)
{
    addRepeated(app, "--silent", "LAMP@SECONDS", "the lamp goes silent",
        [&options](const std::string& text) {
            const auto [lamp, after] = sides(text, '@', "LAMP@SECONDS");
            options.events.push_back({lampNumber(lamp), {}, secondsFrom(after)});
        });
    addRepeated(app, "--move", "LAMP:ADDRESS@SECONDS", "the lamp changes its address",
        [&options](const std::string& text) {
            const auto [change, after] = sides(text, '@', "LAMP:ADDRESS@SECONDS");
            const auto [lamp, address] = sides(change, ':', "LAMP:ADDRESS@SECONDS");
            options.events.push_back(
                {lampNumber(lamp), checkedAddress(address), secondsFrom(after)});
        });
}

void addNetwork(CLI::App& app, Options& options)
{
    const auto addPercent = [&app](const char* name, double& share, const char* description) {
        app.add_option_function<double>(
               name, [&share](double percent) { share = percent / 100; }, description)
            ->option_text("PERCENT")
            ->check(CLI::Range(0.0, 100.0));
    };
    addPercent("--loss", options.faults.loss, "datagrams that get lost, either way");
    addPercent("--duplicates", options.faults.duplicates, "answers that arrive twice");
    app.add_option_function<unsigned>(
           "--delay", [&options](unsigned ms) { options.faults.delay = Milliseconds(ms); },
           "answers come later by this")
        ->option_text("MS")
        ->check(CLI::Range(0, 60000));
    app.add_option("--seed", options.faults.seed, "another run of luck")->option_text("N");
    app.add_option("--port", options.port, "UDP port (56700)")
        ->option_text("N")
        ->check(CLI::Range(1, 65535));
    app.add_option(
           "--log", options.logFile, "every datagram as a line of JSON; - for standard output")
        ->option_text("FILE");
    const auto flag = [&app](const char* name, bool& value, const char* description) {
        app.add_flag(name, value, description)->disable_flag_override();
    };
    flag("--any-address", options.anyAddress, "allow addresses outside 127.0.0.0/8");
    flag("--broadcast", options.broadcast,
        "answer 255.255.255.255 too; for use in a network namespace");
    flag("--control", options.control, "take commands on standard input; \"help\" lists them");
}

void check(const Options& options)
{
    std::vector<std::string> addresses = options.addresses;
    addresses.push_back(options.firstAddress);
    for (const Event& event : options.events) {
        if (event.lamp > options.count)
            throw BadOption{fmt::format("there is no lamp {}", event.lamp)};
        if (!event.newAddress.empty())
            addresses.push_back(event.newAddress);
    }
    for (const std::string& address : addresses) {
        if (!options.anyAddress && !isLoopback(address)) {
            throw BadOption{fmt::format(
                "{} is not in 127.0.0.0/8; say --any-address to use it all the same", address)};
        }
    }
}

} // namespace

ParsedOptions parseOptions(std::vector<std::string> arguments)
{
    ParsedOptions parsed;
    Options& options = parsed.options;
    CLI::App app(
        "Lamps made of software that answer the LIFX LAN protocol, for trying and testing.",
        "virtual-lamps");
    addLamps(app, options);
    addEvents(app, options);
    addNetwork(app, options);
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    try {
        app.parse(std::move(arguments));
        if (!options.addresses.empty())
            options.count = static_cast<unsigned>(options.addresses.size());
        check(options);
    } catch (const CLI::CallForHelp&) {
        parsed.help = app.help();
    } catch (const CLI::ParseError& error) {
        parsed.error = error.what();
    } catch (const BadOption& bad) {
        parsed.error = bad.text;
    }
    return parsed;
}

} // namespace virtual_lamps
