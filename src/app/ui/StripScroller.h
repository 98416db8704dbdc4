#pragma once

#include <QScrollArea>

namespace lumeroom {

/// Where the cards scroll, on the panel's ground.
class StripScroller : public QScrollArea {
    Q_OBJECT

public:
    StripScroller(QWidget* cards, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace lumeroom
