#pragma once

#include "base/Geometry.h"

#include <functional>
#include <optional>
#include <string>

namespace lumeroom {

class Log;
class UserDefaults;

/// The sizes that a layout depends on.
class PanelGeometry {
public:
    virtual ~PanelGeometry() = default;
    /// The inside of the panel's window, without title and menu bar.
    virtual Size contentSize() const = 0;
    virtual Size screenSize() const = 0;
};

/// The layouts of the panel, with the numbers that are stored.
namespace theme {
inline constexpr int kSingleControl = 0; ///< upright sliders side by side
inline constexpr int kHorizontalControl = 1; ///< rows below each other
inline constexpr int kSquareControl = 2; ///< a grid
inline constexpr int kThinControl = 3; ///< slim rows
inline constexpr int kCount = 4;
} // namespace theme

/// Decides where the next strip goes and how large the window may be, and remembers the window's
/// size for each theme.
class LayoutManager {
public:
    /// What the window has beside the strips, in points: the navigation and a scroll bar.
    static constexpr int kBesideTheStrips = 135;

    LayoutManager(UserDefaults& defaults, Log& log, const PanelGeometry& panel);

    int theme() const { return m_theme; }
    void setTheme(int theme);
    /// May be one that does not exist.
    int storedTheme() const;
    /// The view's wish to show which theme it is; told of each one that is set.
    std::function<void(int theme)> segmentedControl;
    bool themeExists() const;
    /// "SingleControl", "HorizontalControl", "SquareControl" or "thinControl"; else empty.
    std::string stripLayoutName() const;

    /// Before all strips are placed anew.
    void reset();
    /// How wide a strip's view of this natural size is to be: those of a grid grow, to a limit, to
    /// fill the lines; then there are more to a line.
    float widthFor(Size natural) const;
    /// The origin of the next strip, whose view has this size.
    Point getNextPointFor(Size stripView);

    /// Whether the container's y runs downwards, as a window's does. In an upright theme a
    /// rectangle of the layout is given from the bottom.
    bool isFlipped() const { return m_theme != theme::kSingleControl; }
    bool shouldScrollHorizontally() const;
    bool shouldScrollVertically() const;
    /// A window may be too narrow for what was placed, if only for a single column.
    bool isCut() const;
    static bool allowsRotating() { return false; }

    // For a theme that does not exist, 0 by 0
    /// Of the container of all strips placed.
    Size getViewSize() const;
    Size getWindowSize() const;
    Size getMinWindowSize() const;
    Size getMaxWindowSize() const;
    /// What a popover for making a group points at, in a container of this width.
    Rectangle getRectFormakeGroupPopover(float containerWidth) const;

    /// Stores the window's size for the theme, and the theme.
    void saveWindowState();
    bool hasPreviousForCurrentTheme() const;
    /// What is stored for the theme; nothing if that is no usable size.
    std::optional<Size> storedWindowSize() const;

private:
    std::string_view windowStateKey() const;
    /// For the strips, in the window's width.
    float room() const;
    float storedLength(std::string_view key, float computed) const;

    UserDefaults& m_defaults;
    Log& m_log;
    const PanelGeometry& m_panel;
    int m_theme;
    float m_w = 0; ///< of the last strip placed
    float m_h = 0;
    float m_runningTotal = 0;
    int m_rows = 0;
    int m_columns = 0;
    int m_matrixMaxCols = 0;
};

} // namespace lumeroom
