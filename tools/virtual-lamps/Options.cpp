#include "Options.h"

#include <arpa/inet.h>
#include <fmt/core.h>

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

double percent(const std::string& text)
{
    return number<double>(text, 0, 100) / 100;
}

bool isLoopback(const std::string& address)
{
    return address.starts_with("127.");
}

std::string checkedAddress(const std::string& text)
{
    in_addr parsed{};
    if (::inet_pton(AF_INET, text.c_str(), &parsed) != 1)
        throw BadOption{fmt::format("'{}' is no IPv4 address", text)};
    return text;
}

/// Takes one option; `value` fetches the argument behind it.
template <typename ValueOf> void take(Options& options, const std::string& name, ValueOf value)
{
    if (name == "--help") {
        options.help = true;
    } else if (name == "--count") {
        options.count = number<unsigned>(value(), 1, kMostLamps);
    } else if (name == "--first-address") {
        options.firstAddress = checkedAddress(value());
    } else if (name == "--address") {
        options.addresses.push_back(checkedAddress(value()));
    } else if (name == "--product") {
        options.products.clear();
        for (const std::string& product : split(value(), ','))
            options.products.push_back(number<std::uint32_t>(product, 0, 1000000));
    } else if (name == "--label") {
        options.labels.push_back(value());
    } else if (name == "--group") {
        options.groups.push_back(assignment(value()));
    } else if (name == "--location") {
        options.locations.push_back(assignment(value()));
    } else if (name == "--tag") {
        options.tags.push_back(assignment(value()));
    } else if (name == "--zones") {
        const auto [lamp, zones] = sides(value(), ':', "LAMP:COUNT");
        options.zones[lampNumber(lamp)] = number<unsigned>(zones, 1, kMostZones);
    } else if (name == "--loss") {
        options.faults.loss = percent(value());
    } else if (name == "--duplicates") {
        options.faults.duplicates = percent(value());
    } else if (name == "--delay") {
        options.faults.delay = Milliseconds(number<unsigned>(value(), 0, 60000));
    } else if (name == "--seed") {
        options.faults.seed = number<unsigned>(value(), 0, 4294967295U);
    } else if (name == "--silent") {
        const auto [lamp, after] = sides(value(), '@', "LAMP@SECONDS");
        options.events.push_back({lampNumber(lamp), {}, secondsFrom(after)});
    } else if (name == "--move") {
        const auto [change, after] = sides(value(), '@', "LAMP:ADDRESS@SECONDS");
        const auto [lamp, address] = sides(change, ':', "LAMP:ADDRESS@SECONDS");
        options.events.push_back({lampNumber(lamp), checkedAddress(address), secondsFrom(after)});
    } else if (name == "--port") {
        options.port = number<std::uint16_t>(value(), 1, 65535);
    } else if (name == "--log") {
        options.logFile = value();
    } else if (name == "--broadcast") {
        options.broadcast = true;
    } else if (name == "--any-address") {
        options.anyAddress = true;
    } else if (name == "--control") {
        options.control = true;
    } else {
        throw BadOption{fmt::format("unknown option '{}'", name)};
    }
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

ParsedOptions parseOptions(const std::vector<std::string>& arguments)
{
    ParsedOptions parsed;
    try {
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            const std::string name = arguments[i];
            take(parsed.options, name, [&]() -> const std::string& {
                if (++i >= arguments.size())
                    throw BadOption{fmt::format("{} needs a value", name)};
                return arguments[i];
            });
        }
        if (!parsed.options.addresses.empty())
            parsed.options.count = static_cast<unsigned>(parsed.options.addresses.size());
        check(parsed.options);
    } catch (const BadOption& bad) {
        parsed.error = bad.text;
    }
    return parsed;
}

std::string_view helpText()
{
    return R"(Usage: virtual-lamps [options]

Lamps made of software that answer the LIFX LAN protocol, for trying and testing.

  --count N                 how many lamps (1)
  --first-address A         address of the first, the others follow (127.0.56.1)
  --address A               a lamp at this address; repeat for more, instead of --count
  --any-address             allow addresses outside 127.0.0.0/8
  --broadcast               answer 255.255.255.255 too; for use in a network namespace
  --port N                  UDP port (56700)
  --product N[,N...]        product numbers, given to the lamps in turn (27)
  --label TEXT              names, in the order of the lamps; repeat for more
  --group NAME[:LAMPS]      lamps as in 1-3,5; without them, all
  --location NAME[:LAMPS]
  --tag NAME[:LAMPS]
  --zones LAMP:COUNT        zones of a multizone lamp, 1 to 82 (16)
  --loss PERCENT            datagrams that get lost, either way
  --duplicates PERCENT      answers that arrive twice
  --delay MS                answers come later by this
  --seed N                  another run of luck
  --silent LAMP@SECONDS     the lamp goes silent
  --move LAMP:ADDRESS@SECONDS   the lamp changes its address
  --log FILE                every datagram as a line of JSON; - for standard output
  --control                 take commands on standard input; "help" lists them
  --help
)";
}

} // namespace virtual_lamps
