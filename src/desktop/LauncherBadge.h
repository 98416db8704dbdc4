#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

#include <optional>

namespace lumeroom {

/// The number on the program's icon in a dock or task bar, told to it over the session bus. Without
/// a bus, or a dock that listens, nothing shows.
class LauncherBadge : public QObject {
    Q_OBJECT

public:
    LauncherBadge();
    ~LauncherBadge() override;

    /// Shows the number; nothing clears it.
    void setLabel(std::optional<int> number);

private:
    void send() const;

    QDBusServiceWatcher m_docks;
    std::optional<int> m_number;
};

} // namespace lumeroom
