#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
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

/// What is read out as this; null while there is none.
template <typename View = QWidget> View* named(const QWidget& parent, const QString& name)
{
    for (View* view : parent.findChildren<View*>()) {
        if (view->accessibleName() == name)
            return view;
    }
    return nullptr;
}

/// Chooses everything of this type and text that can be seen, in any window.
template <typename Control> void choose(const QString& text)
{
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        for (Control* control : window->findChildren<Control*>()) {
            if (control->text() == text && control->isVisible())
                QMetaObject::invokeMethod(control, control->isWidgetType() ? "click" : "trigger");
        }
    }
}

/// Pressed and let go.
inline void key(QWidget& widget, Qt::Key which)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, which, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

/// Presses in the middle of a slider and lets go at this part of its length.
inline void dragTo(QWidget& slider, double part)
{
    const QRectF all(slider.rect());
    const QPointF place = all.height() > all.width()
        ? QPointF(all.center().x(), all.bottom() - part * all.height())
        : QPointF(part * all.width(), all.center().y());
    mouseAt(slider, QEvent::MouseButtonPress, all.center());
    mouseAt(slider, QEvent::MouseMove, place);
    mouseAt(slider, QEvent::MouseButtonRelease, place);
}

} // namespace lumeroom::test
