#pragma once

#include "strips/ui/PopoverFrame.h"

#include <functional>

class QLineEdit;

namespace lumeroom {

/// A field for a new name. Closing it hands the text over; Escape leaves the name as it is.
class RenamePopover : public PopoverFrame {
    Q_OBJECT

public:
    using ShouldClose = std::function<void(const QString& text)>;
    RenamePopover(const QString& name, ShouldClose shouldClose, QWidget* parent);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* m_field;
    ShouldClose m_shouldClose;
    bool m_cancelled = false;
};

} // namespace lumeroom
