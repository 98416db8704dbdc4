#pragma once

#include <QObject>

#include <functional>

namespace lumeroom {

/// Turns SIGTERM and SIGINT into a call on the main thread. Make it before any other thread starts.
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
