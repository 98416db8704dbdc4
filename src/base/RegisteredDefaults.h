#pragma once

#include "base/Value.h"

namespace lumeroom {

/// The fallbacks that lie under the stored settings. Some numbers are strings, as they have always
/// been stored.
Value::Dictionary registeredDefaults();

} // namespace lumeroom
