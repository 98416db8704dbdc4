#pragma once

#include "app/PanelView.h"
#include "base/RunLoop.h"
#include "engine/Records.h"
#include "strips/LampControlStrip.h"

namespace lumeroom {

class EngineRoom;
class Log;
class UserDefaults;

/// The application's centre: between the engine and the panel of control strips.
class ManualController : public QVLIFXEngineDelegate, public LampControlStripOwner {
public:
    ManualController(RunLoop& runLoop, UserDefaults& defaults, Log& log, EngineRoom& engineRoom,
        PanelView& panel);
    ~ManualController() override;

    // Launch, in this order
    void awakeFromNib();
    void applicationDidFinishLaunching();
    /// Shutdown: the window may close and the process end once this returns.
    void applicationShouldTerminate();

    void showManualControl();
    void allOn();
    void allOff();

    void setUp();
    void refreshSetUpUsingRecycling(bool recycling);
    const Strips& collection() const { return m_collection; }

    // From the engine
    void newLampsAdded() override;
    void lampStatesChanged() override;
    void lampZoneStatesChanged() override;
    void newZoneAdded() override;
    void engineIsSsearching(bool searching) override;
    int runModal(const Alert& alert) override;

private:
    // See ManualController.cpp
    RunLoop& m_runLoop;
    Strips m_collection;
};

} // namespace lumeroom
