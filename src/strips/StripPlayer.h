#pragma once

#include "strips/LampControlStripOwner.h"

namespace lumeroom {

class StripCaption;

/// Plays effects on a strip, one at a time; the caption says which.
class StripPlayer {
public:
    /// Both must outlive it.
    StripPlayer(LampControlStripOwner& owner, StripCaption& caption)
        : m_owner(owner)
        , m_caption(caption)
    {
    }

    bool isPlaying() const { return m_runner && m_runner->isRunning(); }
    /// A name that no effect has leaves the one that plays going.
    void play(const std::string& name, LampControlStrip& strip);
    void stop();

private:
    LampControlStripOwner& m_owner;
    StripCaption& m_caption;
    std::unique_ptr<StripEffect> m_runner;
};

} // namespace lumeroom
