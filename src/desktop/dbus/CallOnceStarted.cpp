#include "desktop/dbus/CallOnceStarted.h"

#include "desktop/dbus/ProgramIdentity.h"

#include <QDBusError>
#include <QThread>

namespace lumeroom {

QDBusMessage callOnceStarted(const QDBusConnection& bus, const QDBusMessage& call, int milliseconds)
{
    constexpr int kTries = 50;
    constexpr int kBetweenTriesMilliseconds = 100;
    // Only the program's own object is there for sure once it has started.
    const auto isStarting = [&call](const QDBusMessage& answer) {
        return call.path() == bus::kRootPath
            && answer.errorName() == QDBusError::errorString(QDBusError::UnknownObject);
    };
    QDBusMessage answer = bus.call(call, QDBus::Block, milliseconds);
    for (int i = 1; i < kTries && isStarting(answer); ++i) {
        QThread::msleep(kBetweenTriesMilliseconds);
        answer = bus.call(call, QDBus::Block, milliseconds);
    }
    return answer;
}

} // namespace lumeroom
