#pragma once

#include <QApplication>
#include <QResizeEvent>
#include <QWidget>
#include <QtTest/qtestspontaneevent.h>

namespace lumeroom::test {

/// As by the user's hand on the window's edge, or by the desktop.
inline void resizeFromOutside(QWidget& window, QSize size)
{
    const QSize before = window.size();
    window.resize(size);
    QResizeEvent event(size, before);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&window, &event); // to send it would take that mark away
}

} // namespace lumeroom::test
