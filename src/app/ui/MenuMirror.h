#pragma once

class QMenu;

namespace lumeroom {

class MenuModel;

/// Keeps the menu as the model is, afresh each time it opens. The model has to last as long as the
/// menu can be opened.
void mirrorMenu(QMenu& menu, const MenuModel& model);

} // namespace lumeroom
