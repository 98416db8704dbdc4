#pragma once

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>

#include <functional>
#include <vector>

/// What a kind of object shows on the bus, declared once: introspection, reads, writes and the
/// signals of changes all come from it.
namespace lumeroom {

/// Ends a call with this error and, in a sentence, why.
struct Refusal {
    QDBusError::ErrorType type;
    QString why;
};

struct Argument {
    QLatin1StringView name;
    QLatin1StringView type;
};
using Arguments = std::vector<Argument>;

/// A signal; and, for the XML, a method.
struct Member {
    QLatin1StringView name;
    Arguments in;
    Arguments out;
};

// The parts of introspection
QString interfaceXml(QLatin1StringView name, const QString& members);
QString propertyXml(
    QLatin1StringView name, QLatin1StringView type, bool isWritable, bool isConstant);
QString memberXml(QLatin1StringView element, const Member& member);

template <typename Object, typename Changes> struct SurfaceProperty {
    QLatin1StringView name;
    QLatin1StringView type;
    std::function<QVariant(const Object&)> read;
    /// Throws a Refusal for a value that makes no sense. Null: the property can only be read.
    std::function<void(Changes&, const QVariant&)> take;
    bool isConstant;
};

template <typename Object> struct SurfaceMethod {
    QLatin1StringView name;
    Arguments in;
    Arguments out;
    /// May throw a Refusal.
    std::function<QVariantList(const Object&, const QVariantList&)> call;
};

/// `Changes` collects what is to be written before any of it is done.
template <typename Object, typename Changes> struct Surface {
    using Property = SurfaceProperty<Object, Changes>;
    using Method = SurfaceMethod<Object>;

    QLatin1StringView interface;
    std::vector<Property> properties;
    std::vector<Method> methods;
    /// Does what a property was set to. May throw a Refusal.
    std::function<void(const Object&, const Changes&)> set;
    std::vector<Member> emitted; ///< signals

    /// In the order of the properties.
    QVariantList values(const Object& object) const
    {
        QVariantList list;
        list.reserve(static_cast<qsizetype>(properties.size()));
        for (const Property& property : properties)
            list.append(property.read(object));
        return list;
    }

    QVariantMap namedValues(const Object& object) const
    {
        return named(values(object), QVariantList(static_cast<qsizetype>(properties.size())));
    }

    /// Those of the values that are not what they were.
    QVariantMap changes(const QVariantList& before, const QVariantList& now) const
    {
        return named(now, before);
    }

    void take(Changes& changes, const QString& name, const QVariant& value) const
    {
        const Property& property = propertyNamed(name);
        if (!property.take) {
            throw Refusal{
                QDBusError::PropertyReadOnly, QStringLiteral("%1 can only be read.").arg(name)};
        }
        property.take(changes, value);
    }

    /// To a call of one of the methods.
    std::optional<QVariantList> answer(const Object& object, const QDBusMessage& call) const
    {
        for (const Method& method : methods) {
            if (method.name == call.member() && signatureOf(method.in) == call.signature())
                return method.call(object, call.arguments());
        }
        return {};
    }

    /// To a call of one of the standard methods for properties.
    std::optional<QVariantList> answerProperties(
        const Object& object, const QDBusMessage& call) const
    {
        const QString request = call.member() + u'(' + call.signature() + u')';
        const QVariantList arguments = call.arguments();
        const QString wanted = arguments.value(0).toString();
        const bool isOurs = wanted == interface || wanted.isEmpty();
        if (request == QLatin1StringView("GetAll(s)"))
            return QVariantList{isOurs ? namedValues(object) : QVariantMap()};
        const bool isSet = request == QLatin1StringView("Set(ssv)");
        if (!isSet && request != QLatin1StringView("Get(ss)"))
            return {};
        if (!isOurs)
            refuseInterface(wanted);
        const QString name = arguments[1].toString();
        if (!isSet)
            return QVariantList{
                QVariant::fromValue(QDBusVariant(propertyNamed(name).read(object)))};
        Changes changes;
        take(changes, name, qvariant_cast<QDBusVariant>(arguments[2]).variant());
        set(object, changes);
        return QVariantList();
    }

    QString xml() const
    {
        QString members;
        for (const Property& property : properties)
            members += propertyXml(
                property.name, property.type, bool(property.take), property.isConstant);
        for (const Method& method : methods)
            members += memberXml(QLatin1StringView("method"), {method.name, method.in, method.out});
        for (const Member& signal : emitted)
            members += memberXml(QLatin1StringView("signal"), signal);
        return interfaceXml(interface, members);
    }

    [[noreturn]] static void refuseInterface(const QString& name)
    {
        throw Refusal{QDBusError::UnknownInterface,
            QStringLiteral("This object has no interface %1.").arg(name)};
    }

private:
    const Property& propertyNamed(const QString& name) const
    {
        for (const Property& property : properties) {
            if (property.name == name)
                return property;
        }
        constexpr int kShown = 100; // a name in a dictionary may have any length
        throw Refusal{QDBusError::UnknownProperty,
            QStringLiteral("There is no property %1.").arg(name.left(kShown))};
    }

    QVariantMap named(const QVariantList& list, const QVariantList& apartFrom) const
    {
        QVariantMap map;
        for (qsizetype i = 0; i < list.size(); ++i) {
            if (list[i] != apartFrom[i])
                map.insert(properties[static_cast<std::size_t>(i)].name, list[i]);
        }
        return map;
    }

    static QString signatureOf(const Arguments& arguments)
    {
        QString signature;
        for (const Argument& argument : arguments)
            signature += argument.type;
        return signature;
    }
};

} // namespace lumeroom
