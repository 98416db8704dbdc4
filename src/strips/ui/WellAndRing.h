#pragma once

#include "strips/Controls.h"

#include <QAbstractButton>

namespace lumeroom {

class ColourWellView;

/// The dashed ring round a well that shows a colour which has not been sent; a click sends it.
class SendRing : public QAbstractButton {
    Q_OBJECT

public:
    SendRing(ButtonModel& model, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& place) const override;

private:
    void mirror();

    ButtonModel& m_model;
};

/// A well with the room for its ring.
class WellAndRing : public QWidget {
    Q_OBJECT

public:
    static constexpr int kRing = 6; ///< round the well

    WellAndRing(ButtonModel& sendButton, QWidget* parent);
    /// A child of this, and how wide it is.
    void setWell(ColourWellView& well);
    void setWellSize(int side);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    SendRing* m_ring;
    ColourWellView* m_well = nullptr;
};

} // namespace lumeroom
