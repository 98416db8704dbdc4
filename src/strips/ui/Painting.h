#pragma once

#include "strips/ControlPainting.h"

#include <QColor>
#include <QRectF>

class QPainter;
class QWidget;

namespace lumeroom {

QColor qColor(const Rgba& rgba);
QRectF qRect(const Rectangle& rectangle);
Rectangle rectangleFrom(const QRectF& rect);

/// Whether the widget's palette is a dark one.
bool isDark(const QWidget& widget);

/// A soft light from above, as on glass.
void paintGlow(QPainter& painter, const QRectF& oval);
void paintSliderBar(QPainter& painter, const SliderBar& bar);

} // namespace lumeroom
