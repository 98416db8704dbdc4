#pragma once

#include <QString>

namespace lumeroom {

/// The colours that the program's windows have now are dark ones.
bool areColoursDark();
/// Gives all windows light or dark colours of the program's own.
void useOwnColours(bool dark);
/// Gives them back those of the desktop, drawn in this style.
void useColoursOfDesktop(const QString& style);

} // namespace lumeroom
