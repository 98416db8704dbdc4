#pragma once

#include <string>
#include <string_view>

/// Names as people give them, in UTF-8 of any quality.
namespace lumeroom {

/// Whether there is nothing to see in it: blanks, controls, marks of direction.
bool isBlankName(std::string_view name);
/// The name on one line: a blank stands for each control character and each end of a line.
std::string nameOnOneLine(std::string_view name);

} // namespace lumeroom
