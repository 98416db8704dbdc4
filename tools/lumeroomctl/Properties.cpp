#include "Properties.h"

#include "Failure.h"
#include "Numbers.h"
#include "desktop/Table.h"

#include <QJsonArray>
#include <QSet>

namespace lumeroomctl {

namespace {

const QString kState = QStringLiteral("state");
const QString kLamps = QStringLiteral("lamps");
const QString kKind = QStringLiteral("kind");
// Saturation is another word for whiteness, and says no more than it.
const QStringList kReadable{QStringLiteral("name"), QStringLiteral("label"), QStringLiteral("id"),
    kKind, QStringLiteral("brightness"), QStringLiteral("hue"), QStringLiteral("whiteness"),
    QStringLiteral("kelvin"), kState, QStringLiteral("contact")};

/// As the bus has it: "id" is "ID", others begin with a capital.
QString busName(const QString& name)
{
    if (const Number* number = numberNamed(name))
        return number->busName;
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

QVariant valueOf(const Thing& thing, const QString& name)
{
    const QVariant value = thing.properties.value(busName(name));
    const Number* number = numberNamed(name);
    return number ? number->fromBus(value.toInt()) : value;
}

QVariant parseValue(const QString& name, const QString& text)
{
    if (name == kState)
        return parseState(text);
    if (const Number* number = numberNamed(name))
        return number->parse(text);
    QStringList writable;
    for (const Number& number : numbers())
        writable.append(number.name);
    writable.append(kState);
    throw Failure{kBadUsage,
        QStringLiteral("'%1' cannot be set; these can: %2")
            .arg(name, writable.join(QLatin1StringView(", ")))};
}

QStringList idsOfLamps(const Thing& group, const Things& all)
{
    const QStringList paths = group.lamps();
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
    QStringList names = kReadable;
    if (ofGroup)
        names.append(kLamps);
    return names;
}

bool isTold(const QString& name, const QVariantMap& changes)
{
    // The name is the label, and says so once.
    return name != QLatin1StringView("name") && changes.contains(busName(name));
}

QString textOf(const Thing& thing, const QString& name, const Things& all)
{
    checkIsProperty(name, thing.isGroup());
    if (name == kLamps)
        return lumeroom::printable(idsOfLamps(thing, all).join(u' '));
    if (name == kKind)
        return thing.kind->name;
    const QVariant value = valueOf(thing, name);
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
    return QJsonValue::fromVariant(valueOf(thing, name));
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
        const QVariant value = parseValue(name, pairs[i + 1]);
        if (changes.contains(busName(name)))
            throw Failure{kBadUsage, QStringLiteral("%1 is given twice").arg(name)};
        changes.insert(busName(name), value);
    }
    // A lamp that shows a colour would not show its white.
    const Number& kelvin = *numberNamed(QStringLiteral("kelvin"));
    const Number& whiteness = *numberNamed(QStringLiteral("whiteness"));
    if (changes.contains(kelvin.busName) && !changes.contains(whiteness.busName)
        && !changes.contains(busName(QStringLiteral("hue"))))
        changes.insert(whiteness.busName, whiteness.most);
    return changes;
}

} // namespace lumeroomctl
