#pragma once

#include "strips/Controls.h"

#include <QWidget>

namespace lumeroom {

/// A round swatch of the strip's colour.
class ColourSwatch : public QWidget {
    Q_OBJECT

public:
    ColourSwatch(ColourWellModel& model, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();

    ColourWellModel& m_model;
};

} // namespace lumeroom
