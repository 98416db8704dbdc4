#pragma once

#include <QObject>

#include <functional>

namespace lumeroom {

/// Turns SIGTERM and SIGINT into a call on the main thread.
class QuitSignals : public QObject {
    Q_OBJECT

public:
    /// Keeps the signals for the descriptor alone. Call it before any other thread starts, and so
    /// before QApplication: a thread of Qt's that does not block them would end the program.
    static void block();

    QuitSignals();
    ~QuitSignals() override;

    void setHandler(std::function<void()> quit) { m_quit = std::move(quit); }

private:
    int m_descriptor;
    std::function<void()> m_quit;
};

} // namespace lumeroom
