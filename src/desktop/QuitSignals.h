#pragma once

#include <QObject>

#include <functional>

namespace lumeroom {

/// Turns SIGTERM and SIGINT into a call on the main thread.
class QuitSignals : public QObject {
    Q_OBJECT

public:
    /// Holds the two signals back from this thread and those it starts. Call it before the first of
    /// them, Qt's own included: a thread that takes a signal the default way ends the program.
    static void hold();

    QuitSignals();
    ~QuitSignals() override;

    void setHandler(std::function<void()> quit) { m_quit = std::move(quit); }

private:
    int m_descriptor;
    std::function<void()> m_quit;
};

} // namespace lumeroom
