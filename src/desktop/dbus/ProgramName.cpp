#include "desktop/dbus/ProgramName.h"

#include "desktop/dbus/CallOnceStarted.h"
#include "desktop/dbus/ProgramIdentity.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

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
    auto call = QDBusMessage::createMethodCall(
        m_service, bus::kRootPath, bus::kProgram, QStringLiteral("ShowPanel"));
    call << activationToken;
    return callOnceStarted(m_bus, call, kAnswerMilliseconds).errorMessage();
}

} // namespace lumeroom
