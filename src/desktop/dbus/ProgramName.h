#pragma once

#include <QDBusConnection>

namespace lumeroom {

/// The program's name on the session bus, which only one program can hold.
/// Needs a QCoreApplication.
class ProgramName {
public:
    /// Claims the name; an empty one claims nothing.
    explicit ProgramName(QString service);
    ~ProgramName();
    ProgramName(const ProgramName&) = delete;
    ProgramName& operator=(const ProgramName&) = delete;

    bool hasBus() const { return m_bus.isConnected(); }
    bool isHeld() const { return m_held; }
    /// There is a bus, and another program holds the name.
    bool isTaken() const;
    const QString& service() const { return m_service; }
    QDBusConnection bus() const { return m_bus; }

    /// Asks the holder to bring its panel forward; waits while it is still starting. The token, if
    /// not empty, is what the desktop gave this program so that it may take the focus.
    /// What went wrong, or nothing.
    QString showPanelOfHolder(const QString& activationToken) const;

private:
    QDBusConnection m_bus;
    QString m_service;
    bool m_held = false;
};

} // namespace lumeroom
