#include "Options.h"

#include "Failure.h"
#include "desktop/dbus/ObjectPaths.h"

#include <CLI/CLI.hpp>

namespace lumeroomctl {

namespace {

constexpr const char* kFooter = R"(
NAME is a label or an ID. A lamp comes before anything else of the same name. To
name one kind, put it before: lamp:NAME, zone:NAME, group:NAME, location:NAME,
tag:NAME. The group of all lamps is group:All.

PROPERTY is one of
  brightness           0 to 255, or 0% to 100%
  hue                  0 to 257, or 0deg to 360deg, once round the colour circle
  whiteness            0 for full colour to 255 for white, or 0% to 100%
  saturation           the other way round: 0 for white (only to set)
  kelvin               2500 to 9000, from warm to cool white; makes the lamp white
                       unless hue, whiteness or saturation is set with it
  state                on or off
and to read: name, label, id, kind, and a group's lamps

The lists are for people. For programs there are get, which gives the plain
numbers, --json and --names.

  lumeroomctl set "Desk lamp" state on brightness 40% kelvin 2700

Exit status: 0 done; 1 not found, or it failed; 2 bad usage or value; 3 Lumeroom
is not running.)";

/// What the parser takes in.
struct Typed {
    bool json = false;
    bool names = false;
    bool demo = false;
    std::string defaultsFile;
    std::string name;
    std::vector<std::string> toggled;
    std::string property;
    std::vector<std::string> changes;
};

void addOptions(CLI::App& app, Typed& typed)
{
    const auto flag = [&app](const char* name, bool& value, const char* description) {
        app.add_flag(name, value, description)->disable_flag_override();
    };
    flag("--json", typed.json, "output for programs");
    flag("--names", typed.names, "of a list, the names only, one on a line");
    flag("--demo", typed.demo, "speak to the demonstration (lumeroom --demo)");
    app.add_option("--defaults", typed.defaultsFile, "speak to the program with these settings")
        ->option_text("FILE");
    app.set_version_flag("-v,--version", "lumeroomctl " LUMEROOM_VERSION "\n");
}

void addCommands(CLI::App& app, Typed& typed)
{
    for (const lumeroom::ObjectKind& kind : lumeroom::kObjectKinds) {
        const std::string list(kind.folder.data());
        app.add_subcommand(list, "list the " + list);
    }
    CLI::App* get = app.add_subcommand("get", "show the properties, or the value of one");
    get->add_option("NAME", typed.name, "a label or an ID")->required();
    get->add_option("PROPERTY", typed.property, "one of those below");
    CLI::App* set = app.add_subcommand("set", "change properties, all at once");
    set->add_option("NAME", typed.name, "a label or an ID")->required();
    set->add_option("PROPERTY VALUE", typed.changes, "as many as wanted")->required()->type_size(2);
    CLI::App* toggle = app.add_subcommand("toggle", "switch on what is off, and off what is on");
    toggle->add_option("NAME", typed.toggled, "labels or IDs")->required();
    CLI::App* run
        = app.add_subcommand("run", "run a preset; \"All on\" and \"All off\" always exist");
    run->add_option("PRESET", typed.name, "its name")->required();
    app.add_subcommand("watch", "print each change as it happens");
}

[[noreturn]] void badUsage(const QString& what)
{
    throw Failure{kBadUsage, withinSentence(what), {QStringLiteral("Try 'lumeroomctl --help'.")}};
}

Options optionsFrom(const CLI::App& app, const Typed& typed)
{
    const auto commands = app.get_subcommands();
    if (commands.empty())
        badUsage(QStringLiteral("a command is missing"));
    const CLI::App& command = *commands.front();
    Options options{QString::fromStdString(command.get_name()), {}, typed.json, typed.names,
        typed.demo, QString::fromStdString(typed.defaultsFile), {}};
    for (const CLI::Option* argument :
        command.get_options([](const CLI::Option* option) { return option->get_positional(); })) {
        for (const std::string& text : argument->results())
            options.arguments.append(QString::fromStdString(text));
    }
    return options;
}

} // namespace

Options parseOptions(int argc, char** argv)
{
    CLI::App app("Controls the lamps through a running Lumeroom.", "lumeroomctl");
    app.fallthrough()->require_subcommand(0, 1)->footer(kFooter);
    Typed typed;
    addOptions(app, typed);
    addCommands(app, typed);
    Options options;
    try {
        app.parse(argc, argv);
        return optionsFrom(app, typed);
    } catch (const CLI::CallForHelp&) {
        options.answer = QString::fromStdString(app.help());
    } catch (const CLI::CallForVersion& call) {
        options.answer = QString::fromUtf8(call.what());
    } catch (const CLI::ParseError& error) {
        badUsage(QString::fromUtf8(error.what()));
    }
    return options;
}

} // namespace lumeroomctl
