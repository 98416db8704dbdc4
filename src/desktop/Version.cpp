#include "desktop/Version.h"

namespace lumeroom {

std::string bundleVersionNumber()
{
    return LUMEROOM_VERSION " (" LUMEROOM_BUILD ")";
}

} // namespace lumeroom
