#pragma once

#include "base/RunLoop.h"

#include <QObject>

namespace lumeroom {

/// The run loop of the desktop program: Qt's, on the thread that makes this.
class QtRunLoop : public RunLoop {
public:
    void post(std::function<void()> work) override;
    TimePoint now() const override { return std::chrono::system_clock::now(); }
    Seconds elapsed() const override { return std::chrono::steady_clock::now().time_since_epoch(); }

protected:
    void schedule(Seconds delay, std::function<void()> work) override;

private:
    QObject m_context; ///< what is still waiting when this goes is dropped
};

} // namespace lumeroom
