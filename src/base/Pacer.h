#pragma once

#include "base/RunLoop.h"

#include <string>

namespace lumeroom {

/// A running sequence of passes. Destroying it ends the sequence and waits for a pass under way.
class PacedTask {
public:
    virtual ~PacedTask() = default;
};

/// Starts work that is done in passes with pauses between.
class Pacer {
public:
    /// One pass; answers the pause before the next. An infinite pause ends the sequence.
    using Pass = std::function<Seconds()>;

    virtual ~Pacer() = default;
    [[nodiscard]] virtual std::unique_ptr<PacedTask> start(std::string name, Pass pass) = 0;
};

/// Each task keeps its pace on a thread of its own.
class ThreadPacer : public Pacer {
public:
    std::unique_ptr<PacedTask> start(std::string name, Pass pass) override;
};

} // namespace lumeroom
