#include "app/Undo.h"

#include "engine/EngineRoom.h"

#include <utility>

namespace lumeroom {

namespace {
constexpr Seconds kOneGesture(2.0); // at most, from one movement to the next
}

Undo::Undo(
    EngineRoom& engineRoom, RunLoop& runLoop, std::function<void(const LampChange& step)> restored)
    : m_engineRoom(engineRoom)
    , m_runLoop(runLoop)
    , m_restored(std::move(restored))
{
}

void Undo::change(const Gesture& gesture, const std::string& title, const Lamps& lamps,
    const std::function<void()>& send)
{
    const auto before = LampChange::statesOf(lamps);
    send();
    const LampChange done(before, LampChange::statesOf(lamps));
    if (done.isEmpty())
        return;
    if (goesOn(gesture))
        m_step.extend(done);
    else
        m_step = done;
    m_undone = false;
    m_gesture = gesture;
    m_lastChange = m_runLoop.elapsed();
    m_title = title;
    m_offerIsLatest = false;
    m_listeners.tell();
}

bool Undo::goesOn(const Gesture& gesture) const
{
    if (!m_gesture || gesture.stroke != m_gesture->stroke)
        return false;
    return gesture.stroke
        || (gesture.name == m_gesture->name && m_runLoop.elapsed() - m_lastChange < kOneGesture);
}

void Undo::offerFirst(const std::string& title, std::function<void()> takeBack)
{
    m_offeredTitle = title;
    m_takeBackOffered = std::move(takeBack);
    m_offerIsLatest = true;
    m_listeners.tell();
}

void Undo::undo()
{
    if (offerIsFirst()) {
        std::exchange(m_takeBackOffered, nullptr)();
        m_listeners.tell();
    } else {
        takeStepBack();
    }
}

void Undo::takeStepBack()
{
    if (!hasStep())
        return;
    if (m_step.takeBack(m_engineRoom.registry(), m_engineRoom.commands()))
        restored(true);
    else
        drop();
}

void Undo::redo()
{
    if (!canRedo())
        return;
    if (m_step.makeAgain(m_engineRoom.registry(), m_engineRoom.commands()))
        restored(false);
    else
        drop();
}

void Undo::takeBack(const Stroke& stroke)
{
    if (stroke && m_gesture && m_gesture->stroke == stroke)
        takeStepBack();
}

/// Its lamps are gone, or all that it did has been changed since.
void Undo::drop()
{
    m_step = {};
    m_undone = false;
    m_gesture.reset();
    m_listeners.tell();
}

void Undo::restored(bool undone)
{
    m_undone = undone;
    m_gesture.reset(); // what comes next is another change
    m_restored(m_step);
    m_listeners.tell();
}

} // namespace lumeroom
