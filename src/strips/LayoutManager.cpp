#include "strips/LayoutManager.h"

#include "base/DefaultsKeys.h"
#include "base/Log.h"
#include "base/UserDefaults.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace lumeroom {

namespace {

constexpr float kLeastLength = 300;
constexpr float kLeastWidthOfARow = 600;
constexpr float kMostInGrid = 5000;
constexpr float kPopoverBand = 50;

constexpr std::string_view kWidth = "width";
constexpr std::string_view kHeight = "height";

struct Layout {
    std::string_view name;
    std::string_view windowStateKey;
};
constexpr std::array<Layout, theme::kCount> kLayouts = {{
    {"SingleControl", keys::kClassicWindowState},
    {"HorizontalControl", keys::kHorizontalWindowState},
    {"SquareControl", keys::kBoxWindowState},
    {"thinControl", keys::kThinWindowState},
}};

} // namespace

LayoutManager::LayoutManager(UserDefaults& defaults, Log& log, const PanelGeometry& panel)
    : m_defaults(defaults)
    , m_log(log)
    , m_panel(panel)
    , m_theme(storedTheme())
{
    if (!themeExists())
        m_log.line("{} {} is no layout, ignored", keys::kCurrentTheme.name, m_theme);
}

int LayoutManager::storedTheme() const
{
    const std::int64_t stored = m_defaults.get(keys::kCurrentTheme);
    return static_cast<int>(std::clamp<std::int64_t>(stored, -1, theme::kCount));
}

void LayoutManager::setTheme(int theme)
{
    m_theme = theme;
    if (segmentedControl)
        segmentedControl(theme);
}

bool LayoutManager::themeExists() const
{
    return m_theme >= 0 && m_theme < theme::kCount;
}

std::string LayoutManager::stripLayoutName() const
{
    return themeExists() ? std::string(kLayouts[static_cast<std::size_t>(m_theme)].name) : "";
}

std::string_view LayoutManager::windowStateKey() const
{
    return themeExists() ? kLayouts[static_cast<std::size_t>(m_theme)].windowStateKey : "";
}

void LayoutManager::reset()
{
    m_w = 0;
    m_h = 0;
    m_runningTotal = 0;
    m_rows = 0;
    m_columns = 0;
    m_matrixMaxCols = 0;
}

float LayoutManager::room() const
{
    return m_panel.contentSize().width - kBesideTheStrips;
}

bool LayoutManager::isCut() const
{
    return getViewSize().width > room();
}

float LayoutManager::widthFor(Size natural) const
{
    constexpr float kMostGrowth = 1.35F;
    if (m_theme != theme::kSquareControl || natural.width < 1)
        return natural.width;
    const float columns = std::max(1.0F, std::floor(room() / natural.width));
    return std::floor(std::clamp(room() / columns, natural.width, natural.width * kMostGrowth));
}

Point LayoutManager::getNextPointFor(Size stripView)
{
    m_w = stripView.width;
    m_h = stripView.height;
    Point point;
    switch (m_theme) {
    case theme::kSingleControl:
        point.x = m_runningTotal;
        m_runningTotal += m_w;
        break;
    case theme::kHorizontalControl:
    case theme::kThinControl:
        point.y = m_runningTotal;
        m_runningTotal += m_h;
        break;
    case theme::kSquareControl:
        point = {m_w * static_cast<float>(m_columns), m_h * static_cast<float>(m_rows)};
        if (static_cast<float>(m_columns + 2) * m_w <= room()) {
            ++m_columns;
        } else {
            ++m_rows;
            m_columns = 0;
            m_runningTotal += m_h;
        }
        m_matrixMaxCols = std::max(m_matrixMaxCols, m_columns);
        break;
    default:
        break;
    }
    return point;
}

bool LayoutManager::shouldScrollHorizontally() const
{
    return m_theme == theme::kSingleControl;
}

bool LayoutManager::shouldScrollVertically() const
{
    return themeExists() && m_theme != theme::kSingleControl;
}

Size LayoutManager::getViewSize() const
{
    switch (m_theme) {
    case theme::kSingleControl:
        return {m_runningTotal, m_h};
    case theme::kHorizontalControl:
    case theme::kThinControl:
        return {m_w, m_runningTotal};
    case theme::kSquareControl:
        return {
            static_cast<float>(m_matrixMaxCols + 1) * m_w, static_cast<float>(m_rows + 1) * m_h};
    default:
        return {};
    }
}

Size LayoutManager::getMinWindowSize() const
{
    switch (m_theme) {
    case theme::kSingleControl:
        return {kLeastWidthOfARow, m_h};
    case theme::kHorizontalControl:
    case theme::kThinControl:
        return {m_w + kBesideTheStrips, kLeastLength};
    case theme::kSquareControl:
        return {kLeastLength, kLeastLength};
    default:
        return {};
    }
}

Size LayoutManager::getMaxWindowSize() const
{
    switch (m_theme) {
    case theme::kSingleControl:
        return {m_panel.screenSize().width, m_h};
    case theme::kHorizontalControl:
    case theme::kThinControl:
        return {m_w + kBesideTheStrips, m_panel.screenSize().height};
    case theme::kSquareControl:
        return {kMostInGrid, kMostInGrid};
    default:
        return {};
    }
}

Size LayoutManager::getWindowSize() const
{
    const auto within = [](float length, float least, float most) {
        return std::max(least, std::min(length, most));
    };
    const Size least = getMinWindowSize();
    const Size most = getMaxWindowSize();
    switch (m_theme) {
    case theme::kSingleControl: {
        const float width = within(m_runningTotal + kBesideTheStrips, least.width, most.width);
        return {storedLength(kWidth, width), m_h};
    }
    case theme::kHorizontalControl:
    case theme::kThinControl: {
        const float height = within(m_runningTotal + m_h, least.height, most.height);
        return {m_w + kBesideTheStrips, storedLength(kHeight, height)};
    }
    case theme::kSquareControl:
        return m_panel.contentSize();
    default:
        return {};
    }
}

/// The stored length of the theme's window, whatever the limits; without a usable one, `computed`.
float LayoutManager::storedLength(std::string_view key, float computed) const
{
    const auto state = m_defaults.objectForKey(windowStateKey());
    if (!state)
        return computed;
    constexpr float kSilly = 100000;
    const Value* stored = state->find(key);
    const float length = stored ? stored->floatValue() : 0.0F;
    if (length >= 1 && length < kSilly)
        return length;
    m_log.line("{} has no usable {}, ignored", windowStateKey(), key);
    return computed;
}

std::optional<Size> LayoutManager::storedWindowSize() const
{
    if (!hasPreviousForCurrentTheme())
        return {};
    const Size size{storedLength(kWidth, 0), storedLength(kHeight, 0)};
    return size.width > 0 && size.height > 0 ? std::optional(size) : std::nullopt;
}

// The height for rows is a product of two lengths, and so reaches far beyond the panel.
Rectangle LayoutManager::getRectFormakeGroupPopover(float containerWidth) const
{
    switch (m_theme) {
    case theme::kSingleControl:
        return {0, 0, containerWidth, kPopoverBand};
    case theme::kHorizontalControl:
    case theme::kThinControl:
        return {containerWidth - kPopoverBand, 0, kPopoverBand, m_runningTotal * m_h};
    case theme::kSquareControl:
        return {
            containerWidth - kPopoverBand, 0, kPopoverBand, static_cast<float>(m_rows + 1) * m_h};
    default:
        return {};
    }
}

void LayoutManager::saveWindowState()
{
    if (!themeExists())
        return;
    const Size size = m_panel.contentSize();
    m_defaults.setObject(windowStateKey(),
        Value::Dictionary{{std::string(kWidth), static_cast<double>(size.width)},
            {std::string(kHeight), static_cast<double>(size.height)}});
    m_defaults.setObject(keys::kCurrentTheme, m_theme);
}

bool LayoutManager::hasPreviousForCurrentTheme() const
{
    return themeExists() && m_defaults.objectForKey(windowStateKey()).has_value();
}

} // namespace lumeroom
