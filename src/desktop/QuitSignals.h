#pragma once

#include <QObject>

#include <functional>

namespace lumeroom {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread for as long as it lives; from
/// then on they do nothing. One at a time.
class QuitSignals : public QObject {
    Q_OBJECT

public:
    QuitSignals();
    ~QuitSignals() override;

    void setHandler(std::function<void()> quit) { m_quit = std::move(quit); }

private:
    int m_descriptor;
    std::function<void()> m_quit;
};

} // namespace lumeroom
