#pragma once

namespace lumeroomctl {

struct Options;

/// Does what the command line says. The exit status; what fails throws a Failure.
int runCommand(const Options& options);

} // namespace lumeroomctl
