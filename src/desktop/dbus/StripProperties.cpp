#include "desktop/dbus/StripProperties.h"

#include "desktop/dbus/ProgramIdentity.h"

#include <algorithm>
#include <array>

namespace lumeroom {

namespace {

constexpr QLatin1StringView kState("State");

struct NumberProperty {
    QLatin1StringView name;
    int most; ///< the least is 0
    std::optional<int> ScriptSettings::*member;
};

constexpr std::array kNumbers{
    NumberProperty{QLatin1StringView("Hue"), 257, &ScriptSettings::hue},
    NumberProperty{QLatin1StringView("Whiteness"), 255, &ScriptSettings::whiteness},
    NumberProperty{QLatin1StringView("Brightness"), 255, &ScriptSettings::brightness},
};

const NumberProperty* numberNamed(const QString& name)
{
    const auto* found = std::find_if(kNumbers.begin(), kNumbers.end(),
        [&name](const NumberProperty& number) { return number.name == name; });
    return found == kNumbers.end() ? nullptr : found;
}

/// Any of the bus's whole numbers will do: not every caller can choose among them.
std::optional<qlonglong> wholeNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::ULongLong:
        return static_cast<qlonglong>(
            std::min<qulonglong>(value.toULongLong(), std::numeric_limits<int>::max()));
    default:
        return {};
    }
}

QString escaped(const std::string& id)
{
    if (id.empty())
        return QStringLiteral("_");
    QString text;
    for (const char byte : id) {
        const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z')
            || (byte >= 'A' && byte <= 'Z');
        if (plain)
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("_%1").arg(
                static_cast<unsigned char>(byte), 2, 16, QLatin1Char('0'));
    }
    return text;
}

template <typename Objects>
QList<QDBusObjectPath> pathsOf(const Objects& objects, QString (*pathOf)(const std::string&))
{
    QList<QDBusObjectPath> paths;
    for (const auto& object : objects) {
        const QDBusObjectPath path(pathOf(object->ID()));
        if (!paths.contains(path))
            paths.append(path);
    }
    return paths;
}

} // namespace

QString lampPath(const std::string& id)
{
    return bus::kLampsFolder + QStringLiteral("/") + escaped(id);
}

QString groupPath(const std::string& id)
{
    return bus::kGroupsFolder + QStringLiteral("/") + escaped(id);
}

QList<QDBusObjectPath> lampPaths(const ScriptLamps& lamps)
{
    return pathsOf(lamps, lampPath);
}

QList<QDBusObjectPath> groupPaths(const ScriptGroups& groups)
{
    return pathsOf(groups, groupPath);
}

QVariantMap propertiesOf(const ScriptedStrip& strip)
{
    const QString name = QString::fromStdString(strip.name());
    return {
        {QStringLiteral("Name"), name},
        {QStringLiteral("Label"), name},
        {QStringLiteral("ID"), QString::fromStdString(strip.ID())},
        {QStringLiteral("Hue"), strip.hue()},
        {QStringLiteral("Whiteness"), strip.whiteness()},
        {QStringLiteral("Brightness"), strip.brightness()},
        {kState, strip.state()},
    };
}

QVariantMap propertiesOf(const ZTScrGroup& group)
{
    QVariantMap properties = propertiesOf(static_cast<const ScriptedStrip&>(group));
    properties.insert(QStringLiteral("Lamps"), QVariant::fromValue(lampPaths(group.getLamps())));
    return properties;
}

bool isWritable(const QString& property)
{
    return property == kState || numberNamed(property);
}

QString readInto(ScriptSettings& settings, const QString& property, const QVariant& value)
{
    if (property == kState) {
        if (value.typeId() != QMetaType::Bool)
            return QStringLiteral("State is true or false.");
        settings.state = value.toBool();
        return {};
    }
    const NumberProperty* const number = numberNamed(property);
    if (!number)
        return QStringLiteral("%1 cannot be set.").arg(property);
    const auto given = wholeNumber(value);
    if (!given || *given < 0 || *given > number->most) {
        const QString rule = QStringLiteral("%1 is a whole number from 0 to %2")
                                 .arg(QString(number->name))
                                 .arg(number->most);
        return given ? QStringLiteral("%1, not %2.").arg(rule).arg(*given) : rule + u'.';
    }
    settings.*(number->member) = static_cast<int>(*given);
    return {};
}

} // namespace lumeroom
