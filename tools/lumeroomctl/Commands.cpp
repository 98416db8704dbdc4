#include "Commands.h"

#include "Failure.h"
#include "Options.h"
#include "Properties.h"
#include "Watcher.h"
#include "desktop/SettingsFile.h"
#include "desktop/Table.h"
#include "desktop/dbus/ProgramIdentity.h"

#include <QJsonArray>
#include <QJsonDocument>

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

void list(const Client& client, const Options& options, const lumeroom::ObjectKind& kind)
{
    const Things all = client.things();
    const bool ofGroups = kind.interface == lumeroom::bus::kGroup;
    QStringList columns{QStringLiteral("label"), QStringLiteral("state"),
        QStringLiteral("brightness"), QStringLiteral("hue"), QStringLiteral("whiteness"),
        QStringLiteral("id")};
    QList<QStringList> rows{{}};
    for (const QString& column : columns)
        rows.first().append(column.toUpper());
    if (ofGroups)
        rows.first().append(QStringLiteral("LAMPS"));
    QJsonArray objects;
    for (const Thing& thing : all) {
        if (thing.kind != &kind)
            continue;
        objects.append(jsonOf(thing, all));
        QStringList row;
        for (const QString& column : columns)
            row.append(textOf(thing, column, all));
        if (ofGroups)
            row.append(
                QString::number(pathsIn(thing.properties.value(QStringLiteral("Lamps"))).size()));
        rows.append(row);
    }
    if (options.names) {
        for (const QStringList& row : rows.sliced(1))
            print(row.first() + u'\n');
    } else if (options.json) {
        printJson(QJsonDocument(objects));
    } else {
        print(lumeroom::tableOf(rows));
    }
}

void get(const Client& client, const Options& options)
{
    const Thing thing = client.thingNamed(options.arguments.first());
    const Things all = thing.isGroup() ? client.things() : Things();
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
        client.apply(client.thingNamed(options.arguments.first()), changes);
    else if (options.command == QLatin1StringView("run"))
        client.runPreset(options.arguments.first());
    else
        return Watcher(client, options.json).run();
    return kDone;
}

} // namespace lumeroomctl
