#include "desktop/LifeInTheTray.h"

#include <QApplication>

namespace lumeroom {

LifeInTheTray::LifeInTheTray(std::function<bool()> trayIsThere, std::function<void()> quit)
{
    QApplication::setQuitOnLastWindowClosed(false);
    connect(qApp, &QGuiApplication::lastWindowClosed, this,
        [isThere = std::move(trayIsThere), end = std::move(quit)] {
            if (!isThere())
                end();
        });
}

LifeInTheTray::~LifeInTheTray()
{
    QApplication::setQuitOnLastWindowClosed(true);
}

} // namespace lumeroom
