#include "Numbers.h"

#include "Failure.h"
#include "engine/LampUnits.h"

#include <algorithm>
#include <array>

namespace lumeroomctl {

namespace {

constexpr QLatin1StringView kPercent("%");
constexpr QLatin1StringView kDegrees("deg");

constexpr std::array kNumbers{
    Number{QLatin1StringView("brightness"), QLatin1StringView("Brightness"), 0, 255, false,
        kPercent, 0, 100},
    Number{QLatin1StringView("hue"), QLatin1StringView("Hue"), 0, 257, false, kDegrees, 0, 360},
    Number{QLatin1StringView("whiteness"), QLatin1StringView("Whiteness"), 0, 255, false, kPercent,
        0, 100},
    Number{QLatin1StringView("saturation"), QLatin1StringView("Whiteness"), 0, 255, true, kPercent,
        0, 100},
    Number{QLatin1StringView("kelvin"), QLatin1StringView("Warmth"), lumeroom::kWarmestKelvin,
        lumeroom::kCoolestKelvin, true, QLatin1StringView("K"), lumeroom::kWarmestKelvin,
        lumeroom::kCoolestKelvin},
};

std::optional<int> typedNumber(const Number& number, const QString& text)
{
    bool isNumber = false;
    QString typed = text;
    typed.replace(QChar(0xB0), kDegrees);
    if (!typed.endsWith(number.unit, Qt::CaseInsensitive)) {
        const int value = typed.toInt(&isNumber);
        const bool isWithin = value >= number.least && value <= number.most;
        return isNumber && isWithin ? std::optional(value) : std::nullopt;
    }
    const double value = typed.chopped(number.unit.size()).toDouble(&isNumber);
    const bool isWithin = value >= number.unitLeast && value <= number.unitMost;
    if (!isNumber || !isWithin)
        return {};
    const double share = (value - number.unitLeast) / (number.unitMost - number.unitLeast);
    return number.least + qRound(share * (number.most - number.least));
}

} // namespace

int Number::parse(const QString& text) const
{
    if (const auto typed = typedNumber(*this, text))
        return toBus(*typed);
    const QString scale = unitMost == most
        ? QString()
        : QStringLiteral(", or %1%3 to %2%3").arg(unitLeast).arg(unitMost).arg(unit);
    throw Failure{kBadUsage,
        QStringLiteral("%1 is a whole number from %2 to %3%4, not '%5'")
            .arg(name, QString::number(least), QString::number(most), scale, text)};
}

std::span<const Number> numbers()
{
    return kNumbers;
}

const Number* numberNamed(const QString& name)
{
    const auto found = std::find_if(kNumbers.begin(), kNumbers.end(),
        [&name](const Number& number) { return number.name == name; });
    return found == kNumbers.end() ? nullptr : &*found;
}

} // namespace lumeroomctl
