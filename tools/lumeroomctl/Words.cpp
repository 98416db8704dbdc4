#include "Words.h"

#include "Numbers.h"
#include "strips/LightWords.h"

#include <algorithm>

namespace lumeroomctl {

namespace {

int typedValue(const Thing& thing, const QString& name)
{
    const Number& number = *numberNamed(name);
    return number.fromBus(thing.properties.value(number.busName).toInt());
}

lumeroom::Colour colourOf(const Thing& thing)
{
    const auto part = [&thing](const QString& name) {
        return static_cast<float>(typedValue(thing, name))
            / static_cast<float>(numberNamed(name)->most);
    };
    lumeroom::Colour colour;
    colour.hue = part(QStringLiteral("hue"));
    colour.saturation = part(QStringLiteral("saturation"));
    return colour;
}

QString brightnessOf(const Thing& thing)
{
    const Number& brightness = *numberNamed(QStringLiteral("brightness"));
    const int percent = lumeroom::percentOf(static_cast<float>(typedValue(thing, brightness.name)),
        static_cast<float>(brightness.most));
    return QStringLiteral("%1%").arg(percent);
}

QString colourOfLight(const Thing& thing)
{
    const lumeroom::Colour colour = colourOf(thing);
    if (lumeroom::isWhite(colour))
        return QStringLiteral("%1 K").arg(typedValue(thing, QStringLiteral("kelvin")));
    const int round = numberNamed(QStringLiteral("hue"))->unitMost;
    return QStringLiteral("%1 %2%3")
        .arg(QString::fromStdString(lumeroom::colourName(colour)))
        .arg(qRound(colour.hue * static_cast<float>(round)) % round)
        .arg(QChar(0xB0));
}

/// Nothing if there is a light to tell of.
QString whyNoLight(const Thing& thing)
{
    if (thing.isGroup() && thing.lamps().isEmpty())
        return QStringLiteral("no lamps");
    QString contact = thing.properties.value(QStringLiteral("Contact")).toString();
    if (contact == QLatin1StringView("waiting"))
        return contact;
    return contact == QLatin1StringView("silent") ? QStringLiteral("not answering") : QString();
}

bool isOfAllLamps(const Thing& thing)
{
    return thing.id() == QLatin1StringView("0");
}

} // namespace

QStringList lightInWords(const Thing& thing)
{
    const QString none = QStringLiteral("-");
    if (const QString why = whyNoLight(thing); !why.isEmpty())
        return {why, none, none};
    const bool isOn = thing.properties.value(QStringLiteral("State")).toBool();
    return {isOn ? QStringLiteral("on") : QStringLiteral("off"), brightnessOf(thing),
        colourOfLight(thing)};
}

QString whyEmpty(const lumeroom::ObjectKind& kind, const Things& all)
{
    const auto isListed
        = [&kind](const Thing& thing) { return thing.kind == &kind && !isOfAllLamps(thing); };
    if (std::any_of(all.begin(), all.end(), isListed))
        return {};
    switch (kind.type) {
    case lumeroom::StripType::Zone:
        return QStringLiteral("none of the lamps has told of zones");
    case lumeroom::StripType::Group:
        return QStringLiteral("no lamp is in a group yet; the panel's 'Make group...' makes one");
    case lumeroom::StripType::Location:
        return QStringLiteral(
            "no lamp is in a location yet; the panel's 'Make location...' makes one");
    default:
        return QStringLiteral("none of the lamps has a tag");
    }
}

} // namespace lumeroomctl
