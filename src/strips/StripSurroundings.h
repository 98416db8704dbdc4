#pragma once

namespace lumeroom {

class LampControlStripOwner;
class Log;
class RunLoop;
class UserDefaults;

/// What every strip stands on, and what outlives it.
struct StripSurroundings {
    RunLoop& runLoop;
    const UserDefaults& defaults;
    Log& log;
    LampControlStripOwner& owner;
};

} // namespace lumeroom
