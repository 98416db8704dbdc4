#pragma once

namespace lumeroom {

/// Tells assistive technology what the views are that Qt knows nothing of, each of which names its
/// role, one of QAccessible::Role, with Q_CLASSINFO("role", ...); and lets it click every button.
/// Any number of calls are as one.
void announceViews();

} // namespace lumeroom
