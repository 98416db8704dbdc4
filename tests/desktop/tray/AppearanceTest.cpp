#include "desktop/Appearance.h"
#include "desktop/QtRunLoop.h"
#include "support/QtTestInput.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPushButton>
#include <QStyle>

#include <gtest/gtest.h>

namespace lumeroom {

using test::workUntil;

/// The desktop's portal, on this very thread: who waited for its answer would wait for ever.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    ~FakePortal() override { QDBusConnection::disconnectFromBus("portal"); }
    void appear(uint scheme)
    {
        m_scheme = scheme;
        m_bus.registerObject(kPath, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(kService);
    }
    void vanish() { m_bus.unregisterService(kService); }
    void change(const QString& key, uint scheme)
    {
        auto signal = QDBusMessage::createSignal(
            kPath, "org.freedesktop.portal.Settings", "SettingChanged");
        signal << "org.freedesktop.appearance" << key
               << QVariant::fromValue(QDBusVariant(QVariant(scheme)));
        m_bus.send(signal);
    }

public slots:
    QDBusVariant Read(const QString& group, const QString& key) // an old one has no ReadOne
    {
        const bool known = group == "org.freedesktop.appearance" && key == "color-scheme";
        const QDBusVariant scheme(known ? QVariant(m_scheme) : QVariant("nothing"));
        return QDBusVariant(QVariant::fromValue(scheme));
    }

private:
    const QString kService = "org.freedesktop.portal.Desktop";
    const QString kPath = "/org/freedesktop/portal/desktop";
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
    uint m_scheme = 0;
};

TEST(Appearance, followsTheSettingThenThePortalAndGivesTheDesktopItsColoursBack)
{
    const QString styleBefore = QApplication::style()->name();
    QApplication::setStyle("windows");
    const QPalette desktops = QApplication::palette();
    QtRunLoop loop;
    UserDefaults defaults;
    QPushButton window;
    window.show();
    FakePortal portal;
    std::vector<std::optional<bool>> told;
    const PortalColourScheme scheme([&] { told.push_back(scheme.prefersDark()); });
    Appearance appearance(defaults, loop);
    appearance.watch(window);
    const auto isDark = [&window] {
        const bool fusion = window.style()->name() == "fusion";
        return fusion && window.palette().color(QPalette::Button).lightness() < 100;
    };
    const auto isDesktops = [&window, &desktops] {
        return window.style()->name() == "windows" && window.palette().window() == desktops.window()
            && window.palette().highlight() == desktops.highlight();
    };
    const auto set
        = [&defaults](std::int64_t value) { defaults.setObject(keys::kAppearance, value); };
    EXPECT_TRUE(isDesktops());
    set(keys::kAppearanceDark); // there is no portal yet
    EXPECT_TRUE(workUntil(isDark));
    set(keys::kAppearanceLight); // as the desktop's colours are
    EXPECT_TRUE(workUntil(isDesktops));
    set(7);
    portal.appear(1);
    EXPECT_TRUE(workUntil(isDark));
    set(keys::kAppearanceLight);
    EXPECT_TRUE(workUntil(isDesktops));
    set(keys::kAppearanceSystem);
    EXPECT_TRUE(workUntil(isDark));
    portal.change("color-scheme", 0);
    EXPECT_TRUE(workUntil(isDesktops));
    portal.change("color-scheme", 1);
    portal.change("contrast", 0);
    EXPECT_TRUE(workUntil(isDark));
    portal.vanish();
    portal.appear(2); // started anew, it has changed its mind
    EXPECT_TRUE(workUntil(isDesktops));
    const std::vector<std::optional<bool>> wanted{true, std::nullopt, true, false};
    EXPECT_TRUE(workUntil([&] { return told == wanted; }));

    // The desktop itself turns dark, and light is wanted
    QPalette turned = desktops;
    turned.setColor(QPalette::Window, Qt::black);
    QApplication::setPalette(turned);
    EXPECT_TRUE(workUntil([&] { return !isDesktops(); }));
    QEvent themeChange(QEvent::ThemeChange);
    QCoreApplication::sendEvent(&window, &themeChange);
    EXPECT_TRUE(workUntil(isDesktops)); // its own, read anew
    QApplication::setStyle(styleBefore);
}

} // namespace lumeroom

#include "AppearanceTest.moc"
