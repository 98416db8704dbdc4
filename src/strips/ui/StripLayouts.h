#pragma once

class QWidget;

/// The four ways to lay out a strip. Each fixes the row's size and places the controls in it.
namespace lumeroom {

struct StripWidgets;

/// A tall panel with upright sliders; it leaves room below for a scroll bar.
void layOutSingleControl(QWidget& row, const StripWidgets& widgets);
/// A row.
void layOutHorizontalControl(QWidget& row, const StripWidgets& widgets);
/// A card for a grid.
void layOutSquareControl(QWidget& row, const StripWidgets& widgets);
/// A slim row, for many strips.
void layOutThinControl(QWidget& row, const StripWidgets& widgets);

} // namespace lumeroom
