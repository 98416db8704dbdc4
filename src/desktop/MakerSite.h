#pragma once

namespace lumeroom {

// Pages of the maker's web site, in the user's browser
void visitHelp();
void visitLumeroomHome();

} // namespace lumeroom
