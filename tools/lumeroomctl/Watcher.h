#pragma once

#include "Client.h"

#include <QObject>

namespace lumeroomctl {

/// Prints each change of a lamp or group until the program goes away.
class Watcher : public QObject {
    Q_OBJECT

public:
    Watcher(const Client& client, bool json);
    /// The exit status.
    int run();

private slots:
    void propertiesChanged(const QDBusMessage& signal);
    void interfacesAdded(const QDBusMessage& signal);
    void interfacesRemoved(const QDBusMessage& signal);

private:
    void print(const Thing& thing, const QString& event, const QString& property = {}) const;

    const Client& m_client;
    bool m_json;
    Things m_things;
};

} // namespace lumeroomctl
