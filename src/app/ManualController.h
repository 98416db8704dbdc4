#pragma once

#include "app/NavigationModel.h"
#include "app/PanelView.h"
#include "app/StripCollection.h"

namespace lumeroom {

class EngineRoom;
class Log;
class UserDefaults;

/// The application's centre: between the engine and the panel of control strips.
class ManualController : public QVLIFXEngineDelegate {
public:
    ManualController(RunLoop& runLoop, UserDefaults& defaults, Log& log, EngineRoom& engineRoom,
        PanelView& panel);
    ~ManualController() override;
    ManualController(const ManualController&) = delete;
    ManualController& operator=(const ManualController&) = delete;

    // Launch, in this order
    void awakeFromNib();
    void applicationDidFinishLaunching();
    /// Shutdown. The lamps are left as they are.
    void applicationShouldTerminate();

    void showManualControl();
    void allOn();
    void allOff();

    /// Builds the panel; while no lamp is known, tries again every 1.5 seconds.
    void setUp();
    /// Builds it anew, once no popover is open.
    void refreshSetUpUsingRecycling(bool recycling);
    const Strips& collection() const { return m_collection.strips(); }

    // From the engine
    void newLampsAdded() override;
    void lampStatesChanged() override;
    void lampZoneStatesChanged() override;
    void newZoneAdded() override;
    void engineIsSsearching(bool searching) override;
    void lampCapabilitiesChanged() override;
    int runModal(const Alert& alert) override;

private:
    std::shared_ptr<LampControlStrip> makeControlStripForLamp(const Lamp& lamp, StripType type);
    std::shared_ptr<LampControlStrip> recycledStripForID(const std::string& id, StripType type);
    void recycleStrip(const std::shared_ptr<LampControlStrip>& strip);
    void recalculateControlStripPositions();
    void updateLampsSoon();
    void updateLamps(const Lamps& lamps);

    RunLoop& m_runLoop;
    UserDefaults& m_defaults;
    Log& m_log;
    EngineRoom& m_engineRoom;
    PanelView& m_panel;

    LayoutManager m_layoutManager;
    NavigationModel m_navigation;
    StripCollection m_collection;
    Strips m_recycler;
    bool m_attemptedSetUp = false;
    bool m_setUp = false; ///< a pass of setUp has found lamps
    bool m_setUpBuffered = false; ///< a rebuild is coming and takes in whatever is new by then
    bool m_updatePending = false;
    Timer m_retry;
    Timer m_setUpBuffer;
    Timer m_deferredRefresh;
    Lifeline m_lifeline;
};

} // namespace lumeroom
