#pragma once

#include "base/UserDefaults.h"
#include "desktop/dbus/PortalColourScheme.h"

class QWidget;

namespace lumeroom {

/// Keeps all windows light or dark, as the user has set it here or else for the whole desktop.
/// Colours of the program's own take the place of the desktop's only where those disagree.
class Appearance : public QObject {
public:
    Appearance(UserDefaults& defaults, RunLoop& runLoop);

    /// Through a window of the program comes word of the desktop's new colours.
    void watch(QWidget& window);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::optional<bool> isDarkWanted() const;
    void update();
    void apply();

    UserDefaults& m_defaults;
    PortalColourScheme m_portal;
    QString m_styleOfDesktop;
    std::optional<bool> m_isDarkWanted;
    CallSoon m_applySoon;
    Subscription m_settings;
};

} // namespace lumeroom
