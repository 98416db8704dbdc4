#include "Options.h"

#include "Failure.h"

#include <array>

namespace lumeroomctl {

namespace {

struct Command {
    const char* name;
    const char* arguments;
    int least; ///< number of arguments
    int most; ///< -1: any number
};

constexpr std::array kCommands{
    Command{"lamps", "", 0, 0},
    Command{"zones", "", 0, 0},
    Command{"groups", "", 0, 0},
    Command{"locations", "", 0, 0},
    Command{"tags", "", 0, 0},
    Command{"get", "NAME [PROPERTY]", 1, 2},
    Command{"set", "NAME PROPERTY VALUE [PROPERTY VALUE]...", 3, -1},
    Command{"run", "PRESET", 1, 1},
    Command{"watch", "", 0, 0},
};

[[noreturn]] void badUsage(const QString& what)
{
    throw Failure{kBadUsage, what + QStringLiteral("\nTry 'lumeroomctl --help'.")};
}

/// Whether the argument is an option, which is taken in.
bool takeFlag(Options& options, const QString& argument)
{
    if (argument == QLatin1StringView("--json"))
        options.json = true;
    else if (argument == QLatin1StringView("--names"))
        options.names = true;
    else if (argument == QLatin1StringView("--demo"))
        options.demo = true;
    else if (argument == QLatin1StringView("--help") || argument == QLatin1StringView("-h"))
        options.help = true;
    else if (argument == QLatin1StringView("--version") || argument == QLatin1StringView("-v"))
        options.version = true;
    else
        return false;
    return true;
}

/// What is set may be a number below 0, which is then refused for what it is.
bool isNegativeNumber(const Options& options, const QString& argument)
{
    return options.command == QLatin1StringView("set") && argument.size() > 1 && argument[0] == u'-'
        && argument[1].isDigit();
}

void check(const Options& options)
{
    if (options.help || options.version)
        return;
    if (options.command.isEmpty())
        badUsage(QStringLiteral("a command is missing"));
    for (const Command& command : kCommands) {
        if (options.command != QLatin1StringView(command.name))
            continue;
        const auto count = options.arguments.size();
        const bool tooMany = command.most >= 0 && count > command.most;
        const bool unpaired = command.most < 0 && count % 2 == 0;
        if (count < command.least || tooMany || unpaired) {
            badUsage(QStringLiteral("usage: lumeroomctl %1 %2")
                         .arg(options.command, QLatin1StringView(command.arguments))
                         .trimmed());
        }
        return;
    }
    badUsage(QStringLiteral("unknown command '%1'").arg(options.command));
}

} // namespace

Options parseOptions(const QStringList& arguments)
{
    Options options;
    bool onlyNames = false; // behind "--", for names that begin with a dash
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (!onlyNames && argument == QLatin1StringView("--")) {
            onlyNames = true;
        } else if (!onlyNames && argument.startsWith(QLatin1StringView("--defaults"))
            && (argument.size() == 10 || argument[10] == u'=')) {
            options.defaultsFile = argument.size() > 10 ? argument.mid(11) : arguments.value(++i);
            if (options.defaultsFile.isEmpty())
                badUsage(QStringLiteral("--defaults needs a value"));
        } else if (onlyNames || !argument.startsWith(u'-') || isNegativeNumber(options, argument)) {
            if (options.command.isEmpty())
                options.command = argument;
            else
                options.arguments.append(argument);
        } else if (!takeFlag(options, argument)) {
            badUsage(QStringLiteral("unknown option '%1'").arg(argument));
        }
    }
    check(options);
    return options;
}

QString helpText()
{
    return QStringLiteral(R"(Usage: lumeroomctl [options] COMMAND

Controls the lamps through a running Lumeroom.

  lamps, zones, groups, locations, tags
                       list those that are known
  get NAME [PROPERTY]  show the properties of a lamp, zone, group, location
                       or tag, or the value of one
  set NAME PROPERTY VALUE [PROPERTY VALUE]...
                       change them, all at once
  run PRESET           run a preset; "All on" and "All off" always exist
  watch                print each change as it happens

NAME is a label or an ID. A lamp comes before anything else of the same name. To
name one kind, put it before: lamp:NAME, zone:NAME, group:NAME, location:NAME,
tag:NAME. The group of all lamps is group:All.

PROPERTY is one of
  brightness           0 to 255
  hue                  0 to 257, once round the colour circle
  whiteness            0 for full colour to 255 for white
  state                on or off
and to read: name, label, id, kind, and a group's lamps

  --json               output for programs
  --names              with lamps or groups: names only, one on a line
  --demo               speak to the demonstration (lumeroom --demo)
  --defaults FILE      speak to the program with the settings in FILE
  --help
  --version

Exit status: 0 done; 1 not found, or it failed; 2 bad usage or value; 3 Lumeroom
is not running.
)");
}

} // namespace lumeroomctl
