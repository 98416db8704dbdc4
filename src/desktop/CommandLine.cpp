#include "desktop/CommandLine.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr unsigned kMostDemoLamps = 200;

void addOptions(CLI::App& app, CommandLine& line)
{
    const CLI::Validator notEmpty(
        [](const std::string& value) { return value.empty() ? "the value is empty" : ""; }, "");
    auto* demo = app.add_flag("--demo", line.demo, "start simulated lamps and show them");
    auto* lamps = app.add_option("--demo-lamps", line.demoLamps, "the same with this many lamps");
    lamps->option_text("N")->check(CLI::Range(1U, kMostDemoLamps));
    lamps->each([&line](const std::string&) { line.demo = true; });
    app.add_option("--defaults", line.defaultsFile, "keep the settings in FILE")
        ->option_text("FILE")
        ->check(notEmpty);
    app.add_option_function<std::string>(
           "--appearance", [&line](const std::string& which) { line.isDark = which == "dark"; },
           "this time, whatever is set")
        ->option_text("dark|light")
        ->check(CLI::IsMember({"dark", "light"}));
    app.add_option("--snapshot", line.snapshotFile,
           "list the lamps, save a picture of the panel (PNG), quit")
        ->option_text("FILE")
        ->check(notEmpty);
    auto* log = app.add_flag("--log", line.log, "write the log to the terminal too");
    for (auto* flag : {demo, log})
        flag->disable_flag_override();
}

} // namespace

CommandLine parseCommandLine(std::vector<std::string> arguments, const std::string& version)
{
    CommandLine line;
    CLI::App app("Controls LIFX smart lamps over the local network.", "lumeroom");
    app.set_version_flag("-v,--version", "lumeroom " + version + "\n");
    addOptions(app, line);
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        line.answer = app.help();
    } catch (const CLI::CallForVersion& call) {
        line.answer = call.what();
    } catch (const CLI::ParseError& error) {
        line.error = error.what();
    }
    return line;
}

} // namespace lumeroom
