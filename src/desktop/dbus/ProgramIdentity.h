#pragma once

#include <QString>

namespace lumeroom {

/// What names the program on the session bus.
namespace bus {
inline constexpr QLatin1StringView kService("com.tanagerworks.Lumeroom");
inline constexpr QLatin1StringView kRootPath("/com/tanagerworks/Lumeroom");
inline constexpr QLatin1StringView kProgram("com.tanagerworks.Lumeroom");
inline constexpr QLatin1StringView kLamp("com.tanagerworks.Lumeroom.Lamp");
inline constexpr QLatin1StringView kGroup("com.tanagerworks.Lumeroom.Group");
inline constexpr QLatin1StringView kProperties("org.freedesktop.DBus.Properties");
inline constexpr QLatin1StringView kObjectManager("org.freedesktop.DBus.ObjectManager");
} // namespace bus

/// The bus name of the program with these settings. Each settings file makes a program of its own;
/// only the one with the usual file has the plain name.
QString serviceName(const QString& settingsFile);

} // namespace lumeroom
