#pragma once

#include "strips/Controls.h"

#include <QCheckBox>

namespace lumeroom {

/// Picks a strip out among others.
class SelectionBox : public QCheckBox {
    Q_OBJECT

public:
    SelectionBox(ButtonModel& model, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();

    ButtonModel& m_model;
};

} // namespace lumeroom
