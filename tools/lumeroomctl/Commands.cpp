#include "Commands.h"

#include "Failure.h"
#include "Options.h"
#include "Properties.h"
#include "Watcher.h"
#include "Words.h"
#include "desktop/SettingsFile.h"
#include "desktop/Table.h"
#include "desktop/dbus/ProgramIdentity.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace lumeroomctl {

namespace {

void print(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

void printJson(const QJsonDocument& document)
{
    print(lumeroom::printableJson(QString::fromUtf8(document.toJson())));
}

/// A value alone is no document, but it is JSON.
void printJsonValue(const QJsonValue& value)
{
    QString text
        = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    print(lumeroom::printableJson(text.mid(1, text.size() - 2)) + u'\n');
}

bool hasLamps(const Things& all)
{
    return std::any_of(all.begin(), all.end(),
        [](const Thing& thing) { return thing.kind->type == lumeroom::StripType::Lamp; });
}

/// What a person who sees nothing listed may wonder at.
void explain(const Client& client, const lumeroom::ObjectKind& kind, const Things& all)
{
    if (hasLamps(all)) {
        complain(whyEmpty(kind, all));
        return;
    }
    for (const QString& line : client.search().split(u'\n'))
        complain(line);
    complain(QStringLiteral("A program that has just started needs some seconds."));
}

void list(const Client& client, const Options& options, const lumeroom::ObjectKind& kind)
{
    const Things all = client.things();
    const bool ofGroups = kind.interface == lumeroom::bus::kGroup;
    QList<QStringList> rows{{QStringLiteral("LABEL"), QStringLiteral("STATE"),
        QStringLiteral("BRIGHTNESS"), QStringLiteral("COLOUR"), QStringLiteral("ID")}};
    if (ofGroups)
        rows.first().append(QStringLiteral("LAMPS"));
    QJsonArray objects;
    for (const Thing& thing : all) {
        if (thing.kind != &kind)
            continue;
        objects.append(jsonOf(thing, all));
        QStringList row{textOf(thing, QStringLiteral("label"), all)};
        row << lightInWords(thing) << textOf(thing, QStringLiteral("id"), all);
        if (ofGroups)
            row.append(QString::number(thing.lamps().size()));
        rows.append(row);
    }
    if (options.names) {
        for (const QStringList& row : rows.sliced(1))
            print(row.first() + u'\n');
    } else if (options.json) {
        printJson(QJsonDocument(objects));
    } else if (rows.size() > 1) {
        print(lumeroom::tableOf(rows));
    }
    if (!options.names && !options.json)
        explain(client, kind, all);
}

void get(const Client& client, const Options& options)
{
    const Things all = client.things();
    const Thing thing = thingNamed(all, options.arguments.first());
    if (options.arguments.size() > 1) {
        const QString property = options.arguments[1].toLower();
        if (options.json)
            printJsonValue(jsonOf(thing, property, all));
        else
            print(textOf(thing, property, all) + u'\n');
        return;
    }
    if (options.json) {
        printJson(QJsonDocument(jsonOf(thing, all)));
        return;
    }
    QList<QStringList> rows;
    for (const QString& name : propertyNames(thing.isGroup()))
        rows.append({name, textOf(thing, name, all)});
    print(lumeroom::tableOf(rows));
}

/// All are found before the first is switched.
void toggle(const Client& client, const QStringList& names)
{
    const Things all = client.things();
    Things chosen;
    for (const QString& name : names)
        chosen.append(thingNamed(all, name));
    for (const Thing& thing : chosen) {
        if (thing.kind->type == lumeroom::StripType::Zone)
            throw Failure{kFailed, QStringLiteral("a zone goes on and off with its lamp")};
    }
    const QString state = QStringLiteral("State");
    for (const Thing& thing : chosen)
        client.apply(thing, {{state, !thing.properties.value(state).toBool()}});
}

} // namespace

int runCommand(const Options& options)
{
    // What is wrong with the values is said before the program is looked for.
    const QVariantMap changes = options.command == QLatin1StringView("set")
        ? parseChanges(options.arguments.sliced(1))
        : QVariantMap();
    const Client client(
        lumeroom::serviceName(lumeroom::settingsFile(options.demo, options.defaultsFile)));
    for (const lumeroom::ObjectKind& kind : lumeroom::kObjectKinds) {
        if (options.command == kind.folder) {
            list(client, options, kind);
            return kDone;
        }
    }
    if (options.command == QLatin1StringView("get"))
        get(client, options);
    else if (options.command == QLatin1StringView("set"))
        client.apply(thingNamed(client.things(), options.arguments.first()), changes);
    else if (options.command == QLatin1StringView("toggle"))
        toggle(client, options.arguments);
    else if (options.command == QLatin1StringView("run"))
        client.runPreset(options.arguments.first());
    else
        return Watcher(client, options.json).run();
    return kDone;
}

} // namespace lumeroomctl
