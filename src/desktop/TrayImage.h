#pragma once

#include <QIcon>

namespace lumeroom {

/// A light bulb without colours of its own, light with a dark edge, so that it can be made out on
/// light and on dark panels.
QIcon trayImage();

} // namespace lumeroom
