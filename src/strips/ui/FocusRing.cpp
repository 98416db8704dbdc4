#include "strips/ui/FocusRing.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace lumeroom {

namespace {

bool isModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
        return true;
    default:
        return false;
    }
}

void mark(QWidget& window, bool keyboard)
{
    if (window.testAttribute(Qt::WA_KeyboardFocusChange) == keyboard)
        return;
    window.setAttribute(Qt::WA_KeyboardFocusChange, keyboard);
    if (QWidget* focus = window.focusWidget())
        focus->update();
}

} // namespace

bool showsFocusRing(const QWidget& widget)
{
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

FocusRingWatch::FocusRingWatch()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool FocusRingWatch::eventFilter(QObject* watched, QEvent* event)
{
    const bool pressed = event->type() == QEvent::MouseButtonPress;
    const bool typed = event->type() == QEvent::KeyPress
        && !isModifier(static_cast<const QKeyEvent*>(event)->key());
    if ((pressed || typed) && watched->isWidgetType())
        mark(*static_cast<QWidget*>(watched)->window(), typed);
    return false;
}

} // namespace lumeroom
