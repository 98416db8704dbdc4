#pragma once

#include <QObject>

#include <signal.h>

#include <array>
#include <functional>

namespace lumeroom {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread for as long as it lives. One at
/// a time.
class QuitSignals : public QObject {
    Q_OBJECT

public:
    QuitSignals();
    ~QuitSignals() override;

    void setHandler(std::function<void()> quit) { m_quit = std::move(quit); }

private:
    int m_descriptor;
    std::array<struct sigaction, 3> m_before{};
    std::function<void()> m_quit;
};

} // namespace lumeroom
