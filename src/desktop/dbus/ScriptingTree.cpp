#include "desktop/dbus/ScriptingTree.h"

#include "desktop/dbus/ManagedObjects.h"
#include "desktop/dbus/ObjectPaths.h"

#include <QDBusConnection>

#include <algorithm>

namespace lumeroom {

namespace {

/// Nothing that is known has a longer name or path.
constexpr qsizetype kMostCharacters = 1024;

constexpr QLatin1StringView kIntrospectable("org.freedesktop.DBus.Introspectable");
constexpr QLatin1StringView kPeer("org.freedesktop.DBus.Peer");

/// A call may carry megabytes, which would be looked up, logged and sent back in the answer.
void checkLengths(const QDBusMessage& call)
{
    bool tooLong = call.path().size() > kMostCharacters;
    for (const QVariant& argument : call.arguments())
        tooLong = tooLong
            || (argument.typeId() == QMetaType::QString
                && argument.toString().toUtf8().size() > kMostCharacters);
    if (tooLong) {
        throw Refusal{QDBusError::InvalidArgs,
            QStringLiteral("A name or a path has at most %1 bytes.").arg(kMostCharacters)};
    }
}

template <typename Objects> QVariant pathsOf(const Objects& scripted)
{
    QList<QDBusObjectPath> paths;
    for (const auto& object : scripted)
        paths.append(QDBusObjectPath(pathOf(object->target())));
    return QVariant::fromValue(paths);
}

QDBusMessage signal(const QString& path, QLatin1StringView interface, const char* name,
    const QVariantList& arguments)
{
    auto message = QDBusMessage::createSignal(path, interface, QLatin1StringView(name));
    message.setArguments(arguments);
    return message;
}

QDBusMessage propertiesChanged(
    const QString& path, QLatin1StringView interface, const QVariantMap& changes)
{
    return signal(
        path, bus::kProperties, "PropertiesChanged", {QString(interface), changes, QStringList()});
}

QString nodeXml(const QString& name)
{
    return QStringLiteral("  <node name=\"%1\"/>\n").arg(name);
}

} // namespace

ScriptingTree::ScriptingTree(Scripting& scripting, Program program)
    : m_scripting(scripting)
    , m_program(std::move(program))
    , m_programSurface(programSurface())
    , m_objectManager(objectManagerSurface())
    , m_lampSurface(lampSurface(scripting))
    , m_groupSurface(groupSurface(scripting))
{
    registerManagedObjects();
    changes();
}

ScriptingTree::ProgramSurface ScriptingTree::programSurface()
{
    const QLatin1StringView string("s");
    const QLatin1StringView paths("ao");
    const auto doing = [](std::function<void()> action) {
        return [action = std::move(action)](const Program&, const QVariantList&) {
            action();
            return QVariantList();
        };
    };
    return {bus::kProgram,
        {
            {QLatin1StringView("Version"), string,
                [](const Program& program) { return program.version; }, nullptr, true},
            // In the order in which the panel shows them; what it does not show is not among them.
            {QLatin1StringView("Lamps"), paths,
                [this](const Program&) { return pathsOf(m_scripting.getLamps()); }, nullptr, false},
            {QLatin1StringView("Groups"), paths,
                [this](const Program&) { return pathsOf(m_scripting.getGroups()); }, nullptr,
                false},
            {QLatin1StringView("Search"), string,
                [](const Program& program) { return QString::fromStdString(program.search()); },
                nullptr, false},
        },
        {
            {QLatin1StringView("RunPreset"), {{QLatin1StringView("name"), string}},
                {{QLatin1StringView("found"), QLatin1StringView("i")}},
                [this](const Program&, const QVariantList& arguments) -> QVariantList {
                    return {m_scripting.performDirectParameterCommand(
                        arguments[0].toString().toStdString())};
                }},
            {QLatin1StringView("AllOn"), {}, {}, doing([this] { m_scripting.allOn(); })},
            {QLatin1StringView("AllOff"), {}, {}, doing([this] { m_scripting.allOff(); })},
            {QLatin1StringView("Raise"), {}, {}, doing([this] { m_program.showPanel({}); })},
            {QLatin1StringView("ShowPanel"), {{QLatin1StringView("activation_token"), string}}, {},
                [](const Program& program, const QVariantList& arguments) {
                    program.showPanel(arguments[0].toString());
                    return QVariantList();
                }},
        },
        nullptr, {}};
}

ScriptingTree::ProgramSurface ScriptingTree::objectManagerSurface()
{
    const Argument object{QLatin1StringView("object"), QLatin1StringView("o")};
    const QLatin1StringView interfaces("interfaces");
    return {bus::kObjectManager, {},
        {{QLatin1StringView("GetManagedObjects"), {},
            {{QLatin1StringView("objects"), QLatin1StringView("a{oa{sa{sv}}}")}},
            [this](const Program&, const QVariantList&) { return managedObjects(); }}},
        nullptr,
        {
            {QLatin1StringView("InterfacesAdded"), {},
                {object, {interfaces, QLatin1StringView("a{sa{sv}}")}}},
            {QLatin1StringView("InterfacesRemoved"), {},
                {object, {interfaces, QLatin1StringView("as")}}},
        }};
}

const ThingSurface& ScriptingTree::surfaceOf(const KnownThing& thing) const
{
    return thing.target.isGroup() ? m_groupSurface : m_lampSurface;
}

std::optional<KnownThing> ScriptingTree::thingAt(const QString& path) const
{
    const auto target = targetAt(path);
    return target ? m_scripting.thing(*target) : std::nullopt;
}

bool ScriptingTree::exists(const QString& path) const
{
    if (path.size() > kMostCharacters)
        return false;
    const ObjectKind* const kind = kindAt(path);
    return path == bus::kRootPath || (kind && folderOf(*kind) == path) || thingAt(path);
}

QString ScriptingTree::introspect(const QString& path) const
{
    QString xml;
    if (path == bus::kRootPath) {
        for (const ObjectKind& kind : kObjectKinds)
            xml += nodeXml(kind.folder);
        return m_programSurface.xml() + m_objectManager.xml() + xml;
    }
    if (const auto thing = thingAt(path))
        return surfaceOf(*thing).xml();
    const ObjectKind* const kind = kindAt(path);
    if (!kind || folderOf(*kind) != path)
        return {};
    for (const KnownThing& thing : m_scripting.everything()) {
        if (thing.target.type == kind->type)
            xml += nodeXml(pathOf(thing.target).mid(path.size() + 1));
    }
    return xml;
}

bool ScriptingTree::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString interface = message.interface();
    // The bus library describes the objects, and paths of nothing too, and answers pings.
    if (message.type() != QDBusMessage::MethodCallMessage || interface == kPeer
        || (interface == kIntrospectable && exists(message.path())))
        return false;
    QDBusMessage reply;
    try {
        reply = message.createReply(answer(message));
    } catch (const Refusal& refusal) {
        reply = message.createErrorReply(refusal.type, refusal.why);
    }
    if (message.isReplyRequired())
        connection.send(reply);
    return true;
}

QVariantList ScriptingTree::answer(const QDBusMessage& call) const
{
    checkLengths(call);
    const QString interface = call.interface();
    const auto askedOf = [&](const auto& surface, const auto& object) {
        return interface == bus::kProperties ? surface.answerProperties(object, call)
            : interface.isEmpty() || interface == surface.interface ? surface.answer(object, call)
                                                                    : std::nullopt;
    };
    std::optional<QVariantList> given;
    bool known = interface.isEmpty() || interface == bus::kProperties;
    if (call.path() == bus::kRootPath) {
        known = known || interface == bus::kProgram || interface == bus::kObjectManager;
        given = askedOf(m_programSurface, m_program);
        if (!given)
            given = askedOf(m_objectManager, m_program);
    } else if (const auto thing = thingAt(call.path())) {
        known = known || interface == surfaceOf(*thing).interface;
        given = askedOf(surfaceOf(*thing), *thing);
    } else {
        throw Refusal{QDBusError::UnknownObject,
            QStringLiteral("Nothing that is known has the path %1.").arg(call.path())};
    }
    if (given)
        return *given;
    if (!known)
        ThingSurface::refuseInterface(interface);
    throw Refusal{QDBusError::UnknownMethod,
        QStringLiteral("There is no %1 with the arguments (%2) here.")
            .arg(call.member(), call.signature())};
}

QVariantList ScriptingTree::managedObjects() const
{
    ManagedObjects managed;
    for (const KnownThing& thing : m_scripting.everything()) {
        const ThingSurface& surface = surfaceOf(thing);
        managed.insert(QDBusObjectPath(pathOf(thing.target)),
            {{surface.interface, surface.namedValues(thing)}});
    }
    return {QVariant::fromValue(managed)};
}

std::vector<QDBusMessage> ScriptingTree::changes()
{
    std::vector<QDBusMessage> messages;
    QHash<QString, QVariantList> now;
    for (const KnownThing& thing : m_scripting.everything()) {
        const QString path = pathOf(thing.target);
        const ThingSurface& surface = surfaceOf(thing);
        const auto values = now.insert(path, surface.values(thing));
        const auto before = m_told.constFind(path);
        if (before == m_told.cend()) {
            messages.push_back(signal(bus::kRootPath, bus::kObjectManager, "InterfacesAdded",
                {QVariant::fromValue(QDBusObjectPath(path)),
                    QVariant::fromValue(
                        InterfaceProperties{{surface.interface, surface.namedValues(thing)}})}));
        } else if (*before != *values) {
            messages.push_back(
                propertiesChanged(path, surface.interface, surface.changes(*before, *values)));
        }
    }
    for (auto it = m_told.cbegin(); it != m_told.cend(); ++it) {
        if (!now.contains(it.key())) {
            messages.push_back(signal(bus::kRootPath, bus::kObjectManager, "InterfacesRemoved",
                {QVariant::fromValue(QDBusObjectPath(it.key())),
                    QStringList(kindAt(it.key())->interface)}));
        }
    }
    m_told = now;
    const QVariantList program = m_programSurface.values(m_program);
    if (!m_toldOfProgram.isEmpty() && program != m_toldOfProgram) {
        messages.push_back(propertiesChanged(
            bus::kRootPath, bus::kProgram, m_programSurface.changes(m_toldOfProgram, program)));
    }
    m_toldOfProgram = program;
    return messages;
}

} // namespace lumeroom
