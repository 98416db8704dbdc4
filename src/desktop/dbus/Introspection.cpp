#include "desktop/dbus/Introspection.h"

#include <QStringList>

namespace lumeroom::introspection {

namespace {

// What a lamp and a group have in common.
constexpr const char* kStripMembers = R"(    <property name="Name" type="s" access="read"/>
    <property name="Label" type="s" access="read"/>
    <property name="ID" type="s" access="read">
      <annotation name="org.freedesktop.DBus.Property.EmitsChangedSignal" value="const"/>
    </property>
    <property name="Hue" type="i" access="readwrite"/>
    <property name="Whiteness" type="i" access="readwrite"/>
    <property name="Brightness" type="i" access="readwrite"/>
    <property name="State" type="b" access="readwrite"/>
    <method name="Apply">
      <arg name="properties" type="a{sv}" direction="in"/>
    </method>
)";

} // namespace

QString program()
{
    return QStringLiteral(R"(  <interface name="com.tanagerworks.Lumeroom">
    <property name="Version" type="s" access="read">
      <annotation name="org.freedesktop.DBus.Property.EmitsChangedSignal" value="const"/>
    </property>
    <property name="Lamps" type="ao" access="read"/>
    <property name="Groups" type="ao" access="read"/>
    <method name="RunPreset">
      <arg name="name" type="s" direction="in"/>
      <arg name="found" type="i" direction="out"/>
    </method>
    <method name="AllOn"/>
    <method name="AllOff"/>
    <method name="Raise"/>
    <method name="ShowPanel">
      <arg name="activation_token" type="s" direction="in"/>
    </method>
  </interface>
  <interface name="org.freedesktop.DBus.ObjectManager">
    <method name="GetManagedObjects">
      <arg name="objects" type="a{oa{sa{sv}}}" direction="out"/>
    </method>
    <signal name="InterfacesAdded">
      <arg name="object" type="o"/>
      <arg name="interfaces" type="a{sa{sv}}"/>
    </signal>
    <signal name="InterfacesRemoved">
      <arg name="object" type="o"/>
      <arg name="interfaces" type="as"/>
    </signal>
  </interface>
)");
}

QString lamp()
{
    return QStringLiteral("  <interface name=\"com.tanagerworks.Lumeroom.Lamp\">\n")
        + QLatin1StringView(kStripMembers) + QStringLiteral("  </interface>\n");
}

QString group()
{
    return QStringLiteral("  <interface name=\"com.tanagerworks.Lumeroom.Group\">\n")
        + QLatin1StringView(kStripMembers)
        + QStringLiteral("    <property name=\"Lamps\" type=\"ao\" access=\"read\"/>\n"
                         "  </interface>\n");
}

QString children(const QStringList& names)
{
    QString xml;
    for (const QString& name : names)
        xml += QStringLiteral("  <node name=\"%1\"/>\n").arg(name);
    return xml;
}

} // namespace lumeroom::introspection
