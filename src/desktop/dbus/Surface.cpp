#include "desktop/dbus/Surface.h"

namespace lumeroom {

namespace {

QString argumentsXml(const Arguments& arguments, const QString& direction)
{
    QString xml;
    for (const Argument& argument : arguments) {
        xml += QStringLiteral("      <arg name=\"%1\" type=\"%2\"%3/>\n")
                   .arg(argument.name, argument.type, direction);
    }
    return xml;
}

} // namespace

QString interfaceXml(QLatin1StringView name, const QString& members)
{
    return QStringLiteral("  <interface name=\"%1\">\n%2  </interface>\n").arg(name, members);
}

QString propertyXml(
    QLatin1StringView name, QLatin1StringView type, bool isWritable, bool isConstant)
{
    const QString constant
        = QStringLiteral("<annotation name=\"org.freedesktop.DBus.Property.EmitsChangedSignal\" "
                         "value=\"const\"/>");
    return QStringLiteral("    <property name=\"%1\" type=\"%2\" access=\"%3\">%4</property>\n")
        .arg(name, type, isWritable ? QStringLiteral("readwrite") : QStringLiteral("read"),
            isConstant ? constant : QString());
}

QString memberXml(QLatin1StringView element, const Member& member)
{
    const bool isSignal = element == QLatin1StringView("signal");
    return QStringLiteral("    <%1 name=\"%2\">\n%3    </%1>\n")
        .arg(element, member.name,
            argumentsXml(member.in, QStringLiteral(" direction=\"in\""))
                + argumentsXml(
                    member.out, isSignal ? QString() : QStringLiteral(" direction=\"out\"")));
}

} // namespace lumeroom
