#pragma once

#include "LampNetwork.h"

namespace virtual_lamps {

/// Answers one line of the control language: changes a lamp as if by another remote, or tells what
/// it holds. LAMP is a number from 1 or a label.
std::string runCommand(LampNetwork& network, const std::string& line);

/// Everything that a lamp holds, as a line of JSON.
std::string stateAsJson(LampNetwork& network, std::size_t index);

} // namespace virtual_lamps
