#pragma once

#include "strips/Controls.h"

#include <QWidget>

namespace lumeroom {

/// A small picture of the kind of thing that a strip controls.
class BadgeView : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("role", "Graphic")

public:
    BadgeView(BadgeModel& model, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();

    BadgeModel& m_model;
};

} // namespace lumeroom
