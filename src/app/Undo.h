#pragma once

#include "app/LampChange.h"
#include "base/Listeners.h"
#include "base/RunLoop.h"
#include "strips/Controls.h"

namespace lumeroom {

class EngineRoom;

/// What the user does in one go, like the movements of one slider.
struct Gesture {
    std::string name;
    Stroke stroke; ///< without one, it goes on under the same name while it comes quickly
};

/// Takes the last change of the panel back, and makes it again: one step.
class Undo {
public:
    /// `restored` shows on the panel what the lamps have just been sent.
    Undo(EngineRoom& engineRoom, RunLoop& runLoop,
        std::function<void(const LampChange& step)> restored);

    /// Calls `send`, which sends these lamps something by the user's hand. What leaves them as they
    /// were is no step. `title` is for the menu.
    void change(const Gesture& gesture, const std::string& title, const Lamps& lamps,
        const std::function<void()>& send);
    /// Something that only the panel knows can be taken back, before the steps there were so far;
    /// null for nothing.
    void offerFirst(const std::string& title, std::function<void()> takeBack);

    bool canUndo() const { return m_takeBackOffered || hasStep(); }
    bool canRedo() const { return m_undone; }
    // Of what can be taken back, and of what can be made again: "All off", "Desk lamp"
    const std::string& undoTitle() const { return offerIsFirst() ? m_offeredTitle : m_title; }
    const std::string& redoTitle() const { return m_title; }
    // A step of which nothing is left to restore is dropped instead
    void undo();
    void redo();
    /// Takes the step back if it is what this stroke has done.
    void takeBack(const Stroke& stroke);
    [[nodiscard]] Subscription listen(std::function<void()> changed)
    {
        return m_listeners.add(std::move(changed));
    }

private:
    bool hasStep() const { return !m_step.isEmpty() && !m_undone; }
    bool offerIsFirst() const { return m_takeBackOffered && (m_offerIsLatest || !hasStep()); }
    bool goesOn(const Gesture& gesture) const;
    void takeStepBack();
    void restored(bool undone);
    void drop();

    EngineRoom& m_engineRoom;
    RunLoop& m_runLoop;
    std::function<void(const LampChange&)> m_restored;
    LampChange m_step;
    bool m_undone = false;
    std::optional<Gesture> m_gesture; ///< that the step may go on with
    Seconds m_lastChange{};
    std::string m_title;
    std::string m_offeredTitle;
    std::function<void()> m_takeBackOffered;
    bool m_offerIsLatest = false; ///< it came after the step
    Listeners m_listeners;
};

} // namespace lumeroom
