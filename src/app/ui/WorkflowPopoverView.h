#pragma once

#include "app/PanelView.h"

#include <QFrame>
#include <QRect>

class QLineEdit;
class QPushButton;

namespace lumeroom {

/// The popover of a workflow, over the strips: a name and two buttons. It stays until one of them
/// is pressed, or Escape for the first and Return for the second; meanwhile the panel can be used,
/// and the popover dragged aside.
class WorkflowPopoverView : public QFrame {
    Q_OBJECT

public:
    WorkflowPopoverView(const WorkflowPopover& popover, QWidget* parent);

    /// Brings the keyboard to the name.
    void takeFocus();
    /// Puts it beside this rectangle of the parent where there is room, in any case within the
    /// parent.
    void placeBeside(const QRect& rectangle);
    /// Moves it back into the parent after a change of size.
    void keepInside();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void press(int tag);
    void makeKeys();

    QLineEdit* m_name;
    QPushButton* m_cancel;
    QPushButton* m_confirm;
    std::function<void(int tag, const std::string& name)> m_close;
    QPoint m_grip;
};

} // namespace lumeroom
