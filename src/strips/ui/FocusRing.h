#pragma once

#include <QObject>

class QWidget;

namespace lumeroom {

/// Whether the widget has the focus, and the person at the desk last used a key and not the mouse
/// in its window: who points needs no mark of the keyboard's place.
bool showsFocusRing(const QWidget& widget);

/// Keeps what `showsFocusRing` goes by, for every window of the program, as long as it lives. Qt by
/// itself marks a window when Tab moves its focus, and never takes the mark back for a mouse.
class FocusRingWatch : public QObject {
    Q_OBJECT

public:
    FocusRingWatch();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace lumeroom
