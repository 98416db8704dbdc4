#pragma once

#include "strips/MenuModel.h"

namespace lumeroom {

struct StripControls;

/// A strip's entry in the status menu, which may outlive the strip.
class StripMenuEntry {
public:
    /// Both must outlive it.
    StripMenuEntry(StripControls& controls, ControlTarget& target)
        : m_controls(controls)
        , m_target(target)
    {
    }
    ~StripMenuEntry() { release(); }
    StripMenuEntry(const StripMenuEntry&) = delete;
    StripMenuEntry& operator=(const StripMenuEntry&) = delete;

    void setItem(std::shared_ptr<MenuItemModel> item);
    const std::shared_ptr<MenuItemModel>& item() const { return m_item; }

private:
    void release();

    StripControls& m_controls;
    ControlTarget& m_target;
    std::shared_ptr<MenuItemModel> m_item;
};

} // namespace lumeroom
