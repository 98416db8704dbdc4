#pragma once

#include "strips/MenuModel.h"

namespace lumeroom {

class EngineRoom;
class UserDefaults;

/// The pop-up of everything that can be controlled, from which a schedule takes its target: the
/// number that an entry represents.
class LampsPopUp {
public:
    LampsPopUp(const EngineRoom& engineRoom, const UserDefaults& defaults);

    MenuModel& menu() { return m_menu; }
    /// Fills it with what there is now.
    void populateLampsPopUp();

private:
    void add(std::string_view kind, const std::string& name, std::int64_t tag);

    const EngineRoom& m_engineRoom;
    const UserDefaults& m_defaults;
    MenuModel m_menu;
};

} // namespace lumeroom
