#include "desktop/CommandLine.h"

#include <charconv>
#include <optional>

namespace lumeroom {

namespace {

constexpr unsigned kMostDemoLamps = 200;

/// The number if the text is one from 1 to the most there can be.
std::optional<unsigned> lampCount(const std::string& text)
{
    unsigned count = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, count);
    const bool good
        = result.ec == std::errc() && result.ptr == end && count >= 1 && count <= kMostDemoLamps;
    return good ? std::optional(count) : std::nullopt;
}

bool takesValue(const std::string& option)
{
    return option == "--defaults" || option == "--snapshot" || option == "--appearance"
        || option == "--demo-lamps";
}

/// What is wrong with the value, or nothing.
std::string takeValue(CommandLine& line, const std::string& option, const std::string& value)
{
    if (option == "--defaults") {
        line.defaultsFile = value;
    } else if (option == "--snapshot") {
        line.snapshotFile = value;
    } else if (option == "--demo-lamps") {
        const auto count = lampCount(value);
        if (!count)
            return "--demo-lamps takes a number from 1 to 200, not '" + value + "'";
        line.demo = true;
        line.demoLamps = *count;
    } else if (value == "dark" || value == "light") {
        line.appearance
            = value == "dark" ? CommandLine::Appearance::Dark : CommandLine::Appearance::Light;
    } else {
        return "--appearance takes dark or light, not '" + value + "'";
    }
    return {};
}

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size() && line.error.empty(); ++i) {
        std::string option = arguments[i];
        std::optional<std::string> value;
        if (const std::size_t equals = option.find('=');
            option.starts_with("--") && equals != std::string::npos) {
            value = option.substr(equals + 1);
            option.erase(equals);
        }
        if (takesValue(option)) {
            if (!value && i + 1 < arguments.size())
                value = arguments[++i];
            line.error = value && !value->empty() ? takeValue(line, option, *value)
                                                  : option + " needs a value";
        } else if (value) {
            line.error = "unknown option '" + arguments[i] + "'";
        } else if (option == "--help" || option == "-h") {
            line.help = true;
        } else if (option == "--version" || option == "-v") {
            line.version = true;
        } else if (option == "--log") {
            line.log = true;
        } else if (option == "--demo") {
            line.demo = true;
        } else if (option.starts_with('-')) {
            line.error = "unknown option '" + option + "'";
        } else {
            line.error = "unexpected argument '" + option + "'";
        }
    }
    return line;
}

std::string helpText()
{
    return R"(Usage: lumeroom [options]

Controls LIFX smart lamps over the local network.

  --demo               start simulated lamps and show them
  --demo-lamps N       the same with N lamps, 1 to 200 (8)
  --defaults FILE      keep the settings in FILE
  --appearance WHICH   dark or light, instead of the desktop's setting
  --snapshot FILE      wait for the lamps, list them, save a picture of the panel
                       to FILE (PNG) and quit
  --log                write the log to the terminal too, not just to the console
                       window
  --help
  --version
)";
}

} // namespace lumeroom
