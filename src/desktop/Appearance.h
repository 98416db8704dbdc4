#pragma once

#include "desktop/CommandLine.h"

namespace lumeroom {

/// Gives the program light or dark colours of its own; `Desktop` leaves those of the desktop.
void applyAppearance(CommandLine::Appearance appearance);

} // namespace lumeroom
