#pragma once

#include <QFrame>

namespace lumeroom {

/// What popovers look like: a ground with a hairline round it and rounded corners. One that is a
/// popup closes at Return, as at a press outside; Qt closes it at Escape.
class PopoverFrame : public QFrame {
    Q_OBJECT

public:
    static constexpr int kPadding = 12; ///< from the frame to what is in it

    explicit PopoverFrame(QWidget* parent, Qt::WindowFlags flags = {});

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace lumeroom
