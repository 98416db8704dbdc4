#pragma once

#include <string>

namespace lumeroom {

/// The version and, in brackets, the build: "0.1.0 (1)".
std::string bundleVersionNumber();

} // namespace lumeroom
