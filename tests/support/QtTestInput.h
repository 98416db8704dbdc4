#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

#include <functional>

/// What a person does to a window.
namespace lumeroom::test {

/// Lets Qt work until `done`, at most twenty seconds.
inline bool workUntil(const std::function<bool()>& done)
{
    QElapsedTimer timer;
    timer.start();
    QTimer look;
    look.start(10);
    while (!done() && timer.elapsed() < 20000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return done();
}

inline void mouseAt(QWidget& widget, QEvent::Type type, QPointF place)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton,
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

/// At half the widget's height.
inline void mouse(QWidget& widget, QEvent::Type type, double x)
{
    mouseAt(widget, type, {x, widget.height() / 2.0});
}

/// Presses in the middle and lets go at this part of the widget's width.
inline void dragTo(QWidget& widget, double part)
{
    mouse(widget, QEvent::MouseButtonPress, widget.width() / 2.0);
    mouse(widget, QEvent::MouseMove, widget.width() * part);
    mouse(widget, QEvent::MouseButtonRelease, widget.width() * part);
}

} // namespace lumeroom::test
