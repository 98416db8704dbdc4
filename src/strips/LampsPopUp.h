#pragma once

#include "strips/MenuModel.h"

namespace lumeroom {

class LampRegistry;
class UserDefaults;

/// The pop-up of everything that can be controlled, from which a schedule takes its target: the
/// number that an entry represents.
class LampsPopUp {
public:
    LampsPopUp(const LampRegistry& registry, const UserDefaults& defaults);

    MenuModel& menu() { return m_menu; }
    /// Fills it with what there is now.
    void populateLampsPopUp();

private:
    void add(std::string_view kind, const std::string& name, std::int64_t tag);

    const LampRegistry& m_registry;
    const UserDefaults& m_defaults;
    MenuModel m_menu;
};

} // namespace lumeroom
