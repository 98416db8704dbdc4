#pragma once

#include "app/FindModel.h"
#include "app/NameFilter.h"

namespace lumeroom {

class PanelView;
class StripCollection;

/// The user looks for a lamp on the panel: the rows of others are out of sight, while the strips
/// and their order stay as they are.
class PanelFind {
public:
    /// `placeRows` is called when other rows are to show.
    PanelFind(const LampRegistry& registry, const StripCollection& collection, PanelView& panel,
        std::function<void()> placeRows);

    FindActions actions();
    void open();
    void look(const std::string& text);
    void close();

    bool isOn() const { return m_isOn; }
    /// Whether the row of this strip is to show.
    bool shows(const LampControlStrip& strip) { return !m_isOn || m_filter.matches(strip); }
    /// The rows stand: so many are there for what is looked for.
    void wasPlaced(std::size_t rows);
    /// What is looked for where no row is left for it; empty otherwise.
    std::string soughtInVain() const;

private:
    bool opensByTyping() const;

    const StripCollection& m_collection;
    PanelView& m_panel;
    std::function<void()> m_placeRows;
    NameFilter m_filter;
    std::string m_text;
    std::size_t m_found = 0;
    bool m_isOn = false;
};

} // namespace lumeroom
