#include "Client.h"

#include "Failure.h"
#include "desktop/Table.h"
#include "desktop/dbus/CallOnceStarted.h"
#include "desktop/dbus/ManagedObjects.h"
#include "desktop/dbus/ProgramIdentity.h"

#include <QDBusArgument>
#include <QDBusError>

namespace lumeroomctl {

namespace bus = lumeroom::bus;

namespace {

Failure failureOf(const QDBusMessage& error)
{
    Failure notRunning{kNotRunning, QStringLiteral("Lumeroom is not running")};
    // The error of a call that is to start nothing; Qt has no type for it.
    if (error.errorName() == QLatin1StringView("org.freedesktop.DBus.Error.NameHasNoOwner"))
        return notRunning;
    switch (QDBusError(error).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::NoServer:
    case QDBusError::Disconnected:
        return notRunning;
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return {kFailed, QStringLiteral("Lumeroom does not answer")};
    case QDBusError::InvalidArgs:
        return {kBadUsage, error.errorMessage()};
    default:
        return {kFailed, error.errorMessage()};
    }
}

QString kindOf(const Thing& thing)
{
    return thing.isGroup ? QStringLiteral("group") : QStringLiteral("lamp");
}

Thing onlyOneOf(const Things& found, const QString& name)
{
    if (found.isEmpty())
        throw Failure{kFailed, QStringLiteral("the panel shows nothing named '%1'").arg(name)};
    if (found.size() == 1)
        return found.first();
    QString text = QStringLiteral("'%1' names more than one; choose by ID:").arg(name);
    for (const Thing& thing : found)
        text += QStringLiteral("\n  %1 %2").arg(kindOf(thing), lumeroom::printable(thing.id()));
    throw Failure{kFailed, text};
}

} // namespace

QStringList pathsIn(const QVariant& value)
{
    QStringList paths;
    for (const auto& path : qdbus_cast<QList<QDBusObjectPath>>(value))
        paths.append(path.path());
    return paths;
}

Client::Client(QString service)
    : m_bus(QDBusConnection::sessionBus())
    , m_service(std::move(service))
{
    lumeroom::registerManagedObjects();
    if (!m_bus.isConnected())
        throw Failure{kNotRunning, QStringLiteral("there is no session bus to find Lumeroom on")};
}

QDBusMessage Client::call(const QString& path, const QString& interface, const QString& method,
    const QVariantList& arguments) const
{
    auto message = QDBusMessage::createMethodCall(m_service, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    const QDBusMessage answer = lumeroom::callOnceStarted(m_bus, message);
    if (answer.type() == QDBusMessage::ErrorMessage)
        throw failureOf(answer);
    return answer;
}

Things Client::things() const
{
    const auto managed = qdbus_cast<lumeroom::ManagedObjects>(
        call(bus::kRootPath, bus::kObjectManager, QStringLiteral("GetManagedObjects"))
            .arguments()
            .value(0));
    const auto program = qdbus_cast<QVariantMap>(
        call(bus::kRootPath, bus::kProperties, QStringLiteral("GetAll"), {QString(bus::kProgram)})
            .arguments()
            .value(0));
    Things things;
    const auto add = [&](const QStringList& paths, QLatin1StringView interface) {
        for (const QString& path : paths) {
            const auto found = managed.find(QDBusObjectPath(path));
            if (found != managed.end() && found->contains(interface))
                things.append({path, interface == bus::kGroup, found->value(interface)});
        }
    };
    add(pathsIn(program.value(QStringLiteral("Lamps"))), bus::kLamp);
    add(pathsIn(program.value(QStringLiteral("Groups"))), bus::kGroup);
    return things;
}

Thing Client::thingNamed(const QString& name) const
{
    const bool wantsGroup = name.startsWith(QLatin1StringView("group:"));
    const bool wantsLamp = name.startsWith(QLatin1StringView("lamp:"));
    const QString wanted = wantsGroup || wantsLamp ? name.mid(name.indexOf(u':') + 1) : name;
    Things byID;
    Things lamps;
    Things groups;
    for (const Thing& thing : things()) {
        if ((wantsGroup && !thing.isGroup) || (wantsLamp && thing.isGroup))
            continue;
        if (thing.id() == wanted)
            byID.append(thing);
        if (thing.label() == wanted)
            (thing.isGroup ? groups : lamps).append(thing);
    }
    for (const Things& candidates : {byID, lamps}) {
        if (!candidates.isEmpty())
            return onlyOneOf(candidates, name);
    }
    return onlyOneOf(groups, name);
}

void Client::apply(const Thing& thing, const QVariantMap& properties) const
{
    call(thing.path, thing.isGroup ? bus::kGroup : bus::kLamp, QStringLiteral("Apply"),
        {properties});
}

void Client::runPreset(const QString& name) const
{
    const auto answer = call(bus::kRootPath, bus::kProgram, QStringLiteral("RunPreset"), {name});
    if (answer.arguments().value(0).toInt() == 0)
        throw Failure{kFailed, QStringLiteral("there is no preset '%1'").arg(name)};
}

} // namespace lumeroomctl
