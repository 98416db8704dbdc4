#include "desktop/dbus/ScriptingTree.h"

#include "desktop/dbus/Introspection.h"
#include "desktop/dbus/ManagedObjects.h"
#include "desktop/dbus/ProgramIdentity.h"
#include "desktop/dbus/StripProperties.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>

namespace lumeroom {

namespace {

QDBusMessage refusal(const QDBusMessage& call, QDBusError::ErrorType type, const QString& why)
{
    return call.createErrorReply(type, why);
}

QDBusMessage unknownMethod(const QDBusMessage& call)
{
    return refusal(call, QDBusError::UnknownMethod,
        QStringLiteral("There is no %1 with the arguments (%2) here.")
            .arg(call.member(), call.signature()));
}

QStringList childrenOf(const QString& folder, const ScriptingTree::Objects& objects)
{
    QStringList names;
    for (auto it = objects.begin(); it != objects.end(); ++it) {
        if (it.key().startsWith(folder + u'/'))
            names.append(it.key().mid(folder.size() + 1));
    }
    return names;
}

} // namespace

ScriptingTree::ScriptingTree(Scripting& scripting, Program program)
    : m_scripting(scripting)
    , m_program(std::move(program))
{
    registerManagedObjects();
}

ScriptingTree::Objects ScriptingTree::objects() const
{
    Objects objects;
    // Where two have one ID, the one that shows first has the path.
    const auto add = [&objects](const QString& path, const Object& object) {
        if (!objects.contains(path))
            objects.insert(path, object);
    };
    for (const auto& lamp : m_scripting.getLamps())
        add(lampPath(lamp->ID()), {bus::kLamp, propertiesOf(*lamp), lamp});
    for (const auto& group : m_scripting.getGroups())
        add(groupPath(group->ID()), {bus::kGroup, propertiesOf(*group), group});
    add(bus::kRootPath,
        {bus::kProgram,
            {{QStringLiteral("Version"), m_program.version},
                {QStringLiteral("Lamps"), QVariant::fromValue(lampPaths(m_scripting.getLamps()))},
                {QStringLiteral("Groups"),
                    QVariant::fromValue(groupPaths(m_scripting.getGroups()))}},
            nullptr});
    return objects;
}

QString ScriptingTree::introspect(const QString& path) const
{
    if (path == bus::kRootPath) {
        const auto name = [](QLatin1StringView folder) {
            return QString(folder.sliced(bus::kRootPath.size() + 1));
        };
        return introspection::program()
            + introspection::children({name(bus::kLampsFolder), name(bus::kGroupsFolder)});
    }
    const Objects all = objects();
    if (path == bus::kLampsFolder || path == bus::kGroupsFolder)
        return introspection::children(childrenOf(path, all));
    const auto found = all.find(path);
    if (found == all.end())
        return {};
    return found->interface == bus::kLamp ? introspection::lamp() : introspection::group();
}

bool ScriptingTree::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString interface = message.interface();
    // The bus library describes the objects, and paths of nothing too, and answers pings.
    const bool describes = interface == QLatin1StringView("org.freedesktop.DBus.Introspectable");
    if (message.type() != QDBusMessage::MethodCallMessage || (describes && exists(message.path()))
        || interface == QLatin1StringView("org.freedesktop.DBus.Peer"))
        return false;
    const QDBusMessage reply = answer(message);
    if (message.isReplyRequired())
        connection.send(reply);
    return true;
}

bool ScriptingTree::exists(const QString& path) const
{
    return path == bus::kLampsFolder || path == bus::kGroupsFolder || objects().contains(path);
}

QDBusMessage ScriptingTree::answer(const QDBusMessage& call)
{
    const Objects all = objects();
    const auto object = all.find(call.path());
    if (object == all.end()) {
        return refusal(call, QDBusError::UnknownObject,
            QStringLiteral("Nothing on the panel has the path %1.").arg(call.path()));
    }
    const QString interface = call.interface();
    if (interface == bus::kProperties)
        return answerProperties(call, *object);
    const bool isProgram = !object->strip;
    if (isProgram && (interface == bus::kObjectManager || interface.isEmpty())
        && call.member() == QLatin1StringView("GetManagedObjects"))
        return getManagedObjects(call);
    if (isProgram && interface == bus::kObjectManager)
        return unknownMethod(call);
    if (interface != object->interface && !interface.isEmpty()) {
        return refusal(call, QDBusError::UnknownInterface,
            QStringLiteral("This object has no interface %1.").arg(interface));
    }
    return isProgram ? answerProgram(call) : apply(call, *object);
}

QDBusMessage ScriptingTree::answerProperties(const QDBusMessage& call, const Object& object)
{
    const QVariantList arguments = call.arguments();
    const QString interface = arguments.value(0).toString();
    const bool isOurs = interface == object.interface || interface.isEmpty();
    if (call.member() == QLatin1StringView("GetAll") && call.signature() == QLatin1StringView("s"))
        return call.createReply(QVariant(isOurs ? object.properties : QVariantMap()));
    const bool isGet
        = call.member() == QLatin1StringView("Get") && call.signature() == QLatin1StringView("ss");
    const bool isSet
        = call.member() == QLatin1StringView("Set") && call.signature() == QLatin1StringView("ssv");
    if (!isGet && !isSet)
        return unknownMethod(call);
    if (!isOurs) {
        return refusal(call, QDBusError::UnknownInterface,
            QStringLiteral("This object has no interface %1.").arg(interface));
    }
    const QString name = arguments.at(1).toString();
    if (!object.properties.contains(name)) {
        return refusal(call, QDBusError::UnknownProperty,
            QStringLiteral("There is no property %1.").arg(name));
    }
    if (isSet)
        return set(call, object);
    return call.createReply(QVariant::fromValue(QDBusVariant(object.properties.value(name))));
}

QDBusMessage ScriptingTree::set(const QDBusMessage& call, const Object& object)
{
    const QString name = call.arguments().at(1).toString();
    if (!object.strip || !isWritable(name)) {
        return refusal(
            call, QDBusError::PropertyReadOnly, QStringLiteral("%1 can only be read.").arg(name));
    }
    ScriptSettings settings;
    const QVariant value = qvariant_cast<QDBusVariant>(call.arguments().at(2)).variant();
    if (const QString wrong = readInto(settings, name, value); !wrong.isEmpty())
        return refusal(call, QDBusError::InvalidArgs, wrong);
    if (settings.hue)
        object.strip->setHue(*settings.hue);
    if (settings.whiteness)
        object.strip->setWhiteness(*settings.whiteness);
    if (settings.brightness)
        object.strip->setBrightness(*settings.brightness);
    if (settings.state)
        object.strip->setState(*settings.state);
    changed();
    return call.createReply();
}

QDBusMessage ScriptingTree::apply(const QDBusMessage& call, const Object& object)
{
    if (call.member() != QLatin1StringView("Apply")
        || call.signature() != QLatin1StringView("a{sv}"))
        return unknownMethod(call);
    const auto properties = qdbus_cast<QVariantMap>(call.arguments().at(0));
    ScriptSettings settings;
    for (auto it = properties.begin(); it != properties.end(); ++it) {
        if (const QString wrong = readInto(settings, it.key(), it.value()); !wrong.isEmpty())
            return refusal(call, QDBusError::InvalidArgs, wrong);
    }
    object.strip->apply(settings);
    changed();
    return call.createReply();
}

QDBusMessage ScriptingTree::answerProgram(const QDBusMessage& call)
{
    const QString member = call.member();
    const QString signature = call.signature();
    if (signature == QLatin1StringView("s")) {
        const QString text = call.arguments().at(0).toString();
        if (member == QLatin1StringView("RunPreset")) {
            const int found = m_scripting.performDirectParameterCommand(text.toStdString());
            changed();
            return call.createReply(found);
        }
        if (member == QLatin1StringView("ShowPanel")) {
            m_program.showPanel(text);
            return call.createReply();
        }
    }
    if (!signature.isEmpty())
        return unknownMethod(call);
    if (member == QLatin1StringView("AllOn"))
        m_scripting.allOn();
    else if (member == QLatin1StringView("AllOff"))
        m_scripting.allOff();
    else if (member == QLatin1StringView("Raise"))
        m_program.showPanel({});
    else
        return unknownMethod(call);
    changed();
    return call.createReply();
}

QDBusMessage ScriptingTree::getManagedObjects(const QDBusMessage& call) const
{
    ManagedObjects managed;
    const Objects all = objects();
    for (auto it = all.begin(); it != all.end(); ++it) {
        if (it->strip)
            managed.insert(QDBusObjectPath(it.key()), {{it->interface, it->properties}});
    }
    return call.createReply(QVariant::fromValue(managed));
}

void ScriptingTree::changed() const
{
    if (onChange)
        onChange();
}

} // namespace lumeroom
