#pragma once

class QWidget;

namespace lumeroom {

struct Alert;

/// Shows the alert over the parent and returns, once it is dismissed, the index of the button
/// pressed. An alert that ends without one counts as dismissed by its last.
int runAlertBox(const Alert& alert, QWidget* parent);

} // namespace lumeroom
