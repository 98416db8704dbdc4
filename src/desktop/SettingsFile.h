#pragma once

#include <QString>

namespace lumeroom {

/// The file that the settings are in: the one asked for, or else the usual one of the program or of
/// its demonstration.
QString settingsFile(bool demo, const QString& defaultsFile);

} // namespace lumeroom
