#pragma once

#include <QIcon>

class QPalette;

namespace lumeroom {

/// The pictures that the program draws its own controls with.
enum class Icon {
    LightStrip,
    LightGroup,
    RoomGroup,
    NavBack,
    NavForward, ///< from a strip to those behind it
    AllOn,
    AllOff,
    Add,
    Rename,
    Edit, ///< choose the lamps of a group
    Delete,
    Check,
    Search,
    Close,
    Sun, ///< brightness
    Hue, ///< colour
    Drop, ///< whiteness
    Thermometer, ///< warmth
    Effect,
    Handle,
    LayoutUpright,
    LayoutRows,
    LayoutGrid,
    LayoutSlimRows,
};

/// The picture in the palette's text colour, sharp at every size and scale.
QIcon icon(Icon which, const QPalette& palette);

} // namespace lumeroom
