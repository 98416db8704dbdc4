#pragma once

class QWidget;

namespace lumeroom {

/// Shows the window above all others, ready for the keyboard, even if it is minimised.
void bringToFront(QWidget& window);

} // namespace lumeroom
