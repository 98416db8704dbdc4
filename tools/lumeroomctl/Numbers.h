#pragma once

#include <QString>

#include <optional>
#include <span>

namespace lumeroomctl {

/// A property that is a number, as people type it and as the bus has it.
struct Number {
    QLatin1StringView name;
    QLatin1StringView busName;
    int least;
    int most;
    bool isReversed; ///< the bus counts from `most` down
    QLatin1StringView unit; ///< which may stand behind a number of the scale below
    int unitLeast;
    int unitMost;

    int toBus(int typed) const { return isReversed ? most - typed : typed; }
    int fromBus(int value) const { return toBus(value); }
    /// What the text means, as the bus has it. Throws a Failure that names the range.
    int parse(const QString& text) const;
};

std::span<const Number> numbers();
/// Null for a name that is none of theirs.
const Number* numberNamed(const QString& name);

} // namespace lumeroomctl
