#pragma once

#include "strips/StripCondition.h"

class QColor;
class QPainter;
class QSize;
class QWidget;

/// What the card of a strip looks like, in every layout.
namespace lumeroom {

/// Half of the gap between two cards: the row of a strip reaches to the middle of it.
inline constexpr int kCardMargin = 5;
/// Gives a row its size, within which its contents rectangle is the card; `below` stays free under
/// it.
void makeCard(QWidget& row, QSize size, int below = 0);

/// Of the panel, behind the cards.
QColor panelGround(const QWidget& widget);
QColor cardGround(const QWidget& widget);
/// For what is said in passing.
QColor softText(const QWidget& widget);
/// For what is wrong.
QColor warningText(const QWidget& widget);

/// A row with its card, which has an accented edge while the row is held or picked.
void paintCard(QPainter& painter, const QWidget& row, int radius, bool accented);

/// How much of themselves the controls show while the target is in this state, 0 to 1.
double prominenceOf(StripState state);

} // namespace lumeroom
