#include "Properties.h"

#include "Failure.h"
#include "desktop/Table.h"

#include <QJsonArray>
#include <QSet>

namespace lumeroomctl {

namespace {

const QString kState = QStringLiteral("state");
const QString kLamps = QStringLiteral("lamps");
const QString kKind = QStringLiteral("kind");
const QStringList kWritable{
    QStringLiteral("brightness"), QStringLiteral("hue"), QStringLiteral("whiteness"), kState};

/// As the bus has it: "id" is "ID", others begin with a capital.
QString busName(const QString& name)
{
    return name == QLatin1StringView("id") ? QStringLiteral("ID")
                                           : name.left(1).toUpper() + name.mid(1);
}

void checkIsProperty(const QString& name, bool ofGroup)
{
    const QStringList names = propertyNames(ofGroup);
    if (!names.contains(name)) {
        throw Failure{kBadUsage,
            QStringLiteral("there is no property '%1'; there are: %2")
                .arg(name, names.join(QLatin1StringView(", ")))};
    }
}

bool parseState(const QString& text)
{
    const QString value = text.toLower();
    for (const char* word : {"on", "true", "yes", "1"}) {
        if (value == QLatin1StringView(word))
            return true;
    }
    for (const char* word : {"off", "false", "no", "0"}) {
        if (value == QLatin1StringView(word))
            return false;
    }
    throw Failure{kBadUsage, QStringLiteral("state is on or off, not '%1'").arg(text)};
}

QStringList idsOfLamps(const Thing& group, const Things& all)
{
    const QStringList paths = pathsIn(group.properties.value(QStringLiteral("Lamps")));
    const QSet<QString> members(paths.begin(), paths.end());
    QStringList ids;
    for (const Thing& thing : all) {
        if (members.contains(thing.path))
            ids.append(thing.id());
    }
    return ids;
}

} // namespace

QStringList propertyNames(bool ofGroup)
{
    QStringList names{QStringLiteral("name"), QStringLiteral("label"), QStringLiteral("id"), kKind};
    names += kWritable;
    if (ofGroup)
        names.append(kLamps);
    return names;
}

QString typedName(const QString& name)
{
    return name.toLower();
}

QString textOf(const Thing& thing, const QString& name, const Things& all)
{
    checkIsProperty(name, thing.isGroup());
    if (name == kLamps)
        return lumeroom::printable(idsOfLamps(thing, all).join(u' '));
    if (name == kKind)
        return thing.kind->name;
    const QVariant value = thing.properties.value(busName(name));
    if (name == kState)
        return value.toBool() ? QStringLiteral("on") : QStringLiteral("off");
    return lumeroom::printable(value.toString());
}

QJsonValue jsonOf(const Thing& thing, const QString& name, const Things& all)
{
    checkIsProperty(name, thing.isGroup());
    if (name == kLamps)
        return QJsonArray::fromStringList(idsOfLamps(thing, all));
    if (name == kKind)
        return QString(thing.kind->name);
    return QJsonValue::fromVariant(thing.properties.value(busName(name)));
}

QJsonObject jsonOf(const Thing& thing, const Things& all)
{
    QJsonObject object;
    for (const QString& name : propertyNames(thing.isGroup()))
        object.insert(name, jsonOf(thing, name, all));
    return object;
}

QVariantMap parseChanges(const QStringList& pairs)
{
    QVariantMap changes;
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2) {
        const QString name = pairs[i].toLower();
        const QString& text = pairs[i + 1];
        if (!kWritable.contains(name)) {
            throw Failure{kBadUsage,
                QStringLiteral("'%1' cannot be set; these can: %2")
                    .arg(pairs[i], kWritable.join(QLatin1StringView(", ")))};
        }
        if (changes.contains(busName(name)))
            throw Failure{kBadUsage, QStringLiteral("%1 is given twice").arg(name)};
        bool isNumber = true;
        // The program knows the ranges.
        const QVariant value
            = name == kState ? QVariant(parseState(text)) : text.toLongLong(&isNumber);
        if (!isNumber) {
            throw Failure{
                kBadUsage, QStringLiteral("%1 is a whole number, not '%2'").arg(name, text)};
        }
        changes.insert(busName(name), value);
    }
    return changes;
}

} // namespace lumeroomctl
