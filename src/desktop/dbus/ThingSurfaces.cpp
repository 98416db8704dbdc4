#include "desktop/dbus/ThingSurfaces.h"

#include "desktop/dbus/ObjectPaths.h"
#include "engine/LampUnits.h"

namespace lumeroom {

namespace {

using Property = ThingSurface::Property;

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

/// A whole number from 0 to `most`.
Property number(QLatin1StringView name, int most, std::optional<int> ScriptSettings::*member)
{
    const auto take = [=](ScriptSettings& changes, const QVariant& value) {
        const auto given = wholeNumber(value);
        if (given && *given >= 0 && *given <= most) {
            changes.*member = static_cast<int>(*given);
            return;
        }
        const QString rule
            = QStringLiteral("%1 is a whole number from 0 to %2").arg(name).arg(most);
        throw Refusal{QDBusError::InvalidArgs,
            given ? QStringLiteral("%1, not %2.").arg(rule).arg(*given) : rule + u'.'};
    };
    return {name, QLatin1StringView("i"),
        [=](const KnownThing& thing) {
            return *(ScriptSettings::of(thing.record.settings).*member);
        },
        take, false};
}

QVariant label(const KnownThing& thing)
{
    return QString::fromStdString(thing.record.settings.label.value_or(std::string()));
}

QVariant lamps(const KnownThing& group)
{
    QList<QDBusObjectPath> paths;
    for (const auto& lamp : group.lamps)
        paths.append(QDBusObjectPath(pathOf({lamp->id, StripType::Lamp})));
    return QVariant::fromValue(paths);
}

QVariant contact(const KnownThing& thing)
{
    using Contact = StripCondition::Contact;
    switch (thing.condition.contact) {
    case Contact::Waiting:
        return QStringLiteral("waiting");
    case Contact::Silent:
        return QStringLiteral("silent");
    default:
        return QStringLiteral("answering");
    }
}

void takeState(ScriptSettings& changes, const QVariant& value)
{
    if (value.typeId() != QMetaType::Bool)
        throw Refusal{QDBusError::InvalidArgs, QStringLiteral("State is true or false.")};
    changes.state = value.toBool();
}

/// A thing may be gone since it was looked up.
ScriptedStrip& found(const std::shared_ptr<ScriptedStrip>& strip)
{
    if (!strip)
        throw Refusal{QDBusError::UnknownObject, QStringLiteral("It is gone.")};
    return *strip;
}

/// What a lamp and a group have in common.
ThingSurface stripSurface(const Scripting& scripting, QLatin1StringView interface)
{
    const QLatin1StringView string("s");
    ThingSurface surface{interface,
        {
            {QLatin1StringView("Name"), string, label, nullptr, false},
            {QLatin1StringView("Label"), string, label, nullptr, false},
            {QLatin1StringView("ID"), string,
                [](const KnownThing& thing) { return QString::fromStdString(thing.target.id); },
                nullptr, true},
            number(QLatin1StringView("Hue"), 257, &ScriptSettings::hue),
            number(QLatin1StringView("Whiteness"), 255, &ScriptSettings::whiteness),
            number(QLatin1StringView("Brightness"), 255, &ScriptSettings::brightness),
            number(QLatin1StringView("Warmth"), kMostWarmth, &ScriptSettings::warmth),
            {QLatin1StringView("State"), QLatin1StringView("b"),
                [](const KnownThing& thing) { return thing.record.settings.onoff.value_or(false); },
                takeState, false},
            {QLatin1StringView("Contact"), string, contact, nullptr, false},
        },
        {}, nullptr, {}};
    surface.set = [&scripting](const KnownThing& thing, const ScriptSettings& changes) {
        const auto strip = scripting.strip(thing.target);
        if (const auto reason = found(strip).reasonNotToSend(changes))
            throw Refusal{QDBusError::Failed, QString::fromUtf8(*reason)};
        strip->set(changes);
    };
    return surface;
}

/// Changes several properties at once.
ThingSurface::Method apply(const Scripting& scripting, const ThingSurface& surface)
{
    return {QLatin1StringView("Apply"),
        {{QLatin1StringView("properties"), QLatin1StringView("a{sv}")}}, {},
        [&scripting, surface](const KnownThing& thing, const QVariantList& arguments) {
            ScriptSettings changes;
            const auto properties = qdbus_cast<QVariantMap>(arguments[0]);
            for (auto it = properties.begin(); it != properties.end(); ++it)
                surface.take(changes, it.key(), it.value());
            const auto strip = scripting.strip(thing.target);
            if (const auto reason = found(strip).reasonToRefuse(changes))
                throw Refusal{QDBusError::Failed, QString::fromUtf8(*reason)};
            strip->apply(changes);
            return QVariantList();
        }};
}

} // namespace

ThingSurface lampSurface(const Scripting& scripting)
{
    ThingSurface surface = stripSurface(scripting, bus::kLamp);
    surface.methods = {apply(scripting, surface)};
    return surface;
}

ThingSurface groupSurface(const Scripting& scripting)
{
    ThingSurface surface = stripSurface(scripting, bus::kGroup);
    surface.properties.push_back(
        {QLatin1StringView("Lamps"), QLatin1StringView("ao"), lamps, nullptr, false});
    surface.methods = {apply(scripting, surface)};
    return surface;
}

} // namespace lumeroom
