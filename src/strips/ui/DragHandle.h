#pragma once

#include <QWidget>

namespace lumeroom {

/// Where a strip is taken to move it: with the mouse, which the strip's row follows, or with the
/// arrow keys.
class DragHandle : public QWidget {
    Q_OBJECT

public:
    explicit DragHandle(QWidget* parent);

    void showHeld(bool held);

signals:
    /// An arrow key, alone or with Alt.
    void arrowPressed(Qt::Key key);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace lumeroom
