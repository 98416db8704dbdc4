#include "app/PanelFind.h"

#include "app/PanelView.h"
#include "app/StripCollection.h"

#include <utility>

namespace lumeroom {

namespace {
constexpr std::size_t kSeenAtAGlance = 12; // strips
}

PanelFind::PanelFind(const LampRegistry& registry, const StripCollection& collection,
    PanelView& panel, std::function<void()> placeRows)
    : m_collection(collection)
    , m_panel(panel)
    , m_placeRows(std::move(placeRows))
    , m_filter(registry)
{
}

FindActions PanelFind::actions()
{
    return {
        .open = [this] { open(); },
        .opensByTyping = [this] { return opensByTyping(); },
        .look = [this](const std::string& text) { look(text); },
        .close = [this] { close(); },
    };
}

bool PanelFind::opensByTyping() const
{
    return m_collection.strips().size() > kSeenAtAGlance;
}

void PanelFind::open()
{
    if (m_collection.strips().empty())
        return;
    m_found = m_isOn ? m_found : m_collection.strips().size();
    m_isOn = true;
    m_panel.showFind(FoundCount{m_found, m_collection.strips().size()});
}

void PanelFind::look(const std::string& text)
{
    if (!m_isOn)
        return;
    m_text = text;
    m_filter.setText(text);
    m_placeRows();
}

void PanelFind::close()
{
    if (!std::exchange(m_isOn, false))
        return;
    m_text.clear();
    m_filter.setText({});
    m_filter.forgetNames();
    m_placeRows();
    m_panel.showFind({});
}

void PanelFind::wasPlaced(std::size_t rows)
{
    if (!m_isOn)
        return;
    m_found = rows;
    m_panel.showFind(FoundCount{m_found, m_collection.strips().size()});
}

std::string PanelFind::soughtInVain() const
{
    return m_isOn && m_found == 0 ? m_text : std::string();
}

} // namespace lumeroom
