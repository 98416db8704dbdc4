#include "desktop/dbus/PortalColourScheme.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace lumeroom {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kColourScheme = QStringLiteral("color-scheme");
const QString kReadOne = QStringLiteral("ReadOne");
const QString kRead = QStringLiteral("Read"); // of older portals, with one wrapping more

} // namespace

PortalColourScheme::PortalColourScheme(std::function<void()> changed)
    : m_bus(QDBusConnection::sessionBus())
    , m_portals(kService, m_bus, QDBusServiceWatcher::WatchForRegistration)
    , m_changed(std::move(changed))
{
    m_bus.connect(kService, kPath, kSettings, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QDBusMessage)));
    connect(&m_portals, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(kReadOne); });
    ask(kReadOne);
}

void PortalColourScheme::ask(const QString& method)
{
    auto call = QDBusMessage::createMethodCall(kService, kPath, kSettings, method);
    call << kAppearance << kColourScheme;
    auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, method, answer] {
        answer->deleteLater();
        if (!answer->isError())
            take(answer->reply().arguments().value(0));
        else if (method == kReadOne && answer->error().type() == QDBusError::UnknownMethod)
            ask(kRead);
    });
}

void PortalColourScheme::settingChanged(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    if (arguments.value(0) == kAppearance && arguments.value(1) == kColourScheme)
        take(arguments.value(2));
}

void PortalColourScheme::take(const QVariant& value)
{
    constexpr uint kDark = 1;
    constexpr uint kLight = 2;
    QVariant inner = value;
    while (inner.metaType() == QMetaType::fromType<QDBusVariant>())
        inner = inner.value<QDBusVariant>().variant();
    const uint scheme = inner.toUInt();
    m_prefersDark.reset();
    if (scheme == kDark || scheme == kLight)
        m_prefersDark = scheme == kDark;
    m_changed();
}

} // namespace lumeroom
