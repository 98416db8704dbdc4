#include "desktop/dbus/ProgramName.h"

#include "desktop/dbus/ProgramIdentity.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QThread>

namespace lumeroom {

ProgramName::ProgramName(QString service)
    : m_bus(QDBusConnection::sessionBus())
    , m_service(std::move(service))
{
    m_held = hasBus() && !m_service.isEmpty() && m_bus.registerService(m_service);
}

ProgramName::~ProgramName()
{
    if (m_held)
        m_bus.unregisterService(m_service);
}

bool ProgramName::isTaken() const
{
    return hasBus() && !m_held && !m_service.isEmpty()
        && m_bus.interface()->isServiceRegistered(m_service);
}

QString ProgramName::showPanelOfHolder(const QString& activationToken) const
{
    constexpr int kAnswerMilliseconds = 5000;
    constexpr int kTries = 50;
    constexpr int kBetweenTriesMilliseconds = 100;
    auto call = QDBusMessage::createMethodCall(
        m_service, bus::kRootPath, bus::kProgram, QStringLiteral("ShowPanel"));
    call << activationToken;
    QDBusMessage answer;
    for (int i = 0; i < kTries; ++i) {
        answer = m_bus.call(call, QDBus::Block, kAnswerMilliseconds);
        if (answer.errorName() != QDBusError::errorString(QDBusError::UnknownObject))
            break;
        QThread::msleep(kBetweenTriesMilliseconds);
    }
    return answer.errorMessage();
}

} // namespace lumeroom
