#pragma once

#include "engine/QVLIFXEngineDelegate.h"

namespace lumeroom {

/// Passes the engine's news on to its delegate, when it has one.
class EngineNotifier {
public:
    void setDelegate(QVLIFXEngineDelegate* delegate) { m_delegate = delegate; }

    void sendNewLampsNotificationToDelegate() const
    {
        if (m_delegate)
            m_delegate->newLampsAdded();
    }
    void sendLampsStateChangedNotificationToDelegate() const
    {
        if (m_delegate)
            m_delegate->lampStatesChanged();
    }
    void sendGroupingBecameKnownNotificationToDelegate() const
    {
        if (m_delegate) {
            m_delegate->groupingBecameKnown();
            m_delegate->lampStatesChanged();
        }
    }
    void sendLampsZoneStateChangedNotificationToDelegate() const
    {
        if (m_delegate)
            m_delegate->lampZoneStatesChanged();
    }
    void sendZoneAddedNotificationToDelegate() const
    {
        if (m_delegate)
            m_delegate->newZoneAdded();
    }
    void sendLampPowerReportedNotificationToDelegate() const
    {
        if (m_delegate)
            m_delegate->lampPowerReported();
    }
    void sendEngineIsSsearchingToDelegate(bool searching) const
    {
        if (m_delegate)
            m_delegate->engineIsSsearching(searching);
    }
    void sendLampCapabilitiesChangedNotificationToDelegate() const
    {
        if (m_delegate)
            m_delegate->lampCapabilitiesChanged();
    }
    void runModal(const Alert& alert) const
    {
        if (m_delegate)
            m_delegate->runModal(alert);
    }

private:
    QVLIFXEngineDelegate* m_delegate = nullptr;
};

} // namespace lumeroom
