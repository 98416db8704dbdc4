#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

namespace lumeroom {

/// Calls the program and waits for its answer, which may be an error. One that has its name on the
/// bus, but not its objects yet, gets some seconds to finish its start.
/// `milliseconds`, for each try: -1 for the bus library's own limit.
QDBusMessage callOnceStarted(
    const QDBusConnection& bus, const QDBusMessage& call, int milliseconds = -1);

} // namespace lumeroom
