#pragma once

#include "app/WorkflowPopover.h"
#include "strips/Controls.h"
#include "strips/ui/PopoverFrame.h"

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace lumeroom {

class ElidedLabel;

/// The popover of a workflow, a bar under the strips: a name, what is picked, and two buttons. It
/// stays until one of them is pressed, or Escape for the first and Return for the second;
/// meanwhile the panel can be used. Where its parts have no room beside each other, they stand
/// under each other.
class WorkflowPopoverView : public PopoverFrame {
    Q_OBJECT

public:
    WorkflowPopoverView(const WorkflowPopover& popover, QWidget* parent);

    /// Says what would be done now, and lets it be confirmed or not.
    void showState();
    /// Null where the name only shows.
    QWidget* nameField() const;

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeHead();
    void makeFoot();
    void makeKeys();
    void takeReturn();
    void press(int tag);
    std::string name() const;

    WorkflowPopover m_popover;
    QLabel* m_title;
    QLineEdit* m_field = nullptr;
    TextModel m_nameText{0};
    ElidedLabel* m_name = nullptr; ///< in place of the field
    QLabel* m_summary;
    QPushButton* m_cancel;
    QPushButton* m_confirm;
    QBoxLayout* m_parts; ///< the head and the foot
    QBoxLayout* m_head; ///< title and name
    QBoxLayout* m_foot; ///< summary and buttons
    QBoxLayout* m_buttons;
};

} // namespace lumeroom
