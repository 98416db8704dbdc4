#pragma once

#include "desktop/dbus/ProgramIdentity.h"
#include "strips/StripTarget.h"

#include <QList>

#include <array>
#include <optional>

namespace lumeroom {

/// A kind of thing on the bus. Its objects are in a folder of their own below the root, so that
/// things of different kinds may have the same ID.
struct ObjectKind {
    StripType type;
    QLatin1StringView name; ///< as people type it
    QLatin1StringView folder;
    QLatin1StringView interface;
};
inline constexpr std::array kObjectKinds{
    ObjectKind{StripType::Lamp, QLatin1StringView("lamp"), QLatin1StringView("lamps"), bus::kLamp},
    ObjectKind{StripType::Zone, QLatin1StringView("zone"), QLatin1StringView("zones"), bus::kLamp},
    ObjectKind{
        StripType::Group, QLatin1StringView("group"), QLatin1StringView("groups"), bus::kGroup},
    ObjectKind{StripType::Location, QLatin1StringView("location"), QLatin1StringView("locations"),
        bus::kGroup},
    ObjectKind{StripType::Tag, QLatin1StringView("tag"), QLatin1StringView("tags"), bus::kGroup},
};

/// The path of all objects of the kind.
QString folderOf(const ObjectKind& kind);
/// Of the kind's folder, or of an object in it; null for any other path.
const ObjectKind* kindAt(const QString& path);

/// The object's path: its folder's, and the ID with each byte that a path cannot hold as "_" and
/// two hexadecimal digits.
QString pathOf(const StripTarget& target);
/// What has this path, known or not; nothing if the path is none that `pathOf` gives.
std::optional<StripTarget> targetAt(const QString& path);

} // namespace lumeroom
