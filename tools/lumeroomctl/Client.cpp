#include "Client.h"

#include "Failure.h"
#include "desktop/SettingsFile.h"
#include "desktop/dbus/CallOnceStarted.h"
#include "desktop/dbus/ManagedObjects.h"
#include "desktop/dbus/ProgramIdentity.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QHash>

#include <algorithm>
#include <tuple>

namespace lumeroomctl {

namespace bus = lumeroom::bus;

namespace {

Failure notRunningFailure(const QDBusConnection& bus, const QString& service)
{
    const QString demonstration = lumeroom::serviceName(lumeroom::settingsFile(true, {}));
    if (service == bus::kService && bus.interface()->isServiceRegistered(demonstration)) {
        return {kNotRunning,
            QStringLiteral("only the demonstration is running; add --demo to control it")};
    }
    return {kNotRunning, QStringLiteral("Lumeroom is not running")};
}

Failure failureOf(const QDBusMessage& error, const Failure& notRunning)
{
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
        return {kBadUsage, withinSentence(error.errorMessage())};
    default:
        return {kFailed, withinSentence(error.errorMessage())};
    }
}

Thing onlyOneOf(const Things& found, const QString& name)
{
    if (found.isEmpty())
        throw Failure{kFailed, QStringLiteral("there is nothing named '%1'").arg(name)};
    if (found.size() == 1)
        return found.first();
    Failure failure{kFailed, QStringLiteral("'%1' names more than one; choose by ID:").arg(name)};
    for (const Thing& thing : found)
        failure.more.append(QStringLiteral("  %1 %2").arg(thing.kind->name, thing.id()));
    throw failure;
}

} // namespace

QStringList pathsIn(const QVariant& value)
{
    QStringList paths;
    for (const auto& path : qdbus_cast<QList<QDBusObjectPath>>(value))
        paths.append(path.path());
    return paths;
}

QStringList Thing::lamps() const
{
    return pathsIn(properties.value(QStringLiteral("Lamps")));
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
        throw failureOf(answer, notRunningFailure(m_bus, m_service));
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
    QHash<QString, qsizetype> places;
    for (const char* list : {"Lamps", "Groups"}) {
        for (const QString& path : pathsIn(program.value(QLatin1StringView(list))))
            places.insert(path, places.size());
    }
    Things things;
    for (auto it = managed.begin(); it != managed.end(); ++it) {
        if (const auto* kind = lumeroom::kindAt(it.key().path()))
            things.append({it.key().path(), kind, it->value(kind->interface)});
    }
    const auto key = [&places](const Thing& thing) {
        return std::tuple(
            thing.kind, places.value(thing.path, std::numeric_limits<qsizetype>::max()));
    };
    std::sort(things.begin(), things.end(), [&](const Thing& a, const Thing& b) {
        return std::tuple(key(a), a.label(), a.path) < std::tuple(key(b), b.label(), b.path);
    });
    return things;
}

Thing thingNamed(const Things& things, const QString& name)
{
    const QString kind = name.section(u':', 0, 0);
    const bool namesKind = kind.size() < name.size()
        && std::any_of(lumeroom::kObjectKinds.begin(), lumeroom::kObjectKinds.end(),
            [&kind](const lumeroom::ObjectKind& known) { return known.name == kind; });
    const QString wanted = namesKind ? name.mid(kind.size() + 1) : name;
    Things byID;
    Things lamps;
    Things others;
    for (const Thing& thing : things) {
        if (namesKind && thing.kind->name != kind)
            continue;
        if (thing.id() == wanted)
            byID.append(thing);
        if (thing.label() == wanted)
            (thing.kind->type == lumeroom::StripType::Lamp ? lamps : others).append(thing);
    }
    for (const Things& candidates : {byID, lamps}) {
        if (!candidates.isEmpty())
            return onlyOneOf(candidates, name);
    }
    return onlyOneOf(others, name);
}

QString Client::search() const
{
    const auto answer = call(bus::kRootPath, bus::kProperties, QStringLiteral("Get"),
        {QString(bus::kProgram), QStringLiteral("Search")});
    return qdbus_cast<QString>(answer.arguments().value(0));
}

void Client::apply(const Thing& thing, const QVariantMap& properties) const
{
    call(thing.path, thing.kind->interface, QStringLiteral("Apply"), {properties});
}

void Client::runPreset(const QString& name) const
{
    const auto answer = call(bus::kRootPath, bus::kProgram, QStringLiteral("RunPreset"), {name});
    if (answer.arguments().value(0).toInt() == 0)
        throw Failure{kFailed, QStringLiteral("there is no preset '%1'").arg(name)};
}

} // namespace lumeroomctl
