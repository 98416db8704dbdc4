#pragma once

class QWidget;

namespace lumeroom {

/// Lets a popover that has just been shown appear gently; at once on a desktop whose user wants no
/// motion.
void fadeIn(QWidget& popover);

} // namespace lumeroom
