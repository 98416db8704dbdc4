#pragma once

#include "strips/ColourWellModel.h"

class QMimeData;
class QPixmap;
class QPoint;
class QWidget;

/// Colours on their way by the mouse: out of a well, and from another well or the desktop into one.
namespace lumeroom {

/// The type under which a well drags an archived colour.
inline constexpr const char* kArchivedColourType = "application/x-qvcolorpboardtype";

/// What a drag out of the well carries; the caller owns it.
QMimeData* makeColourDragData(ColourWellModel& well);
/// The picture under the mouse during such a drag.
QPixmap colourDragPicture(const Colour& colour, double devicePixelRatio);
/// Drags the colour out of the well's view, which was pressed at this point of it. Waits until the
/// drag is over; the view may be gone then.
void dragColourOut(ColourWellModel& well, QWidget& view, QPoint press);

/// What is offered to a well or dropped on it.
ColourDrop colourDropFrom(const QMimeData& data);

} // namespace lumeroom
