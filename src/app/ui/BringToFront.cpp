#include "app/ui/BringToFront.h"

#include <QWidget>

namespace lumeroom {

void bringToFront(QWidget& window)
{
    window.show();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

} // namespace lumeroom
