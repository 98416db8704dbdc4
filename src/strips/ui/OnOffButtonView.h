#pragma once

#include "strips/ColourWellModel.h"

#include <QAbstractButton>

namespace lumeroom {

/// The round on/off button: lit, it shows a pale version of the lamp's colour.
class OnOffButtonView : public QAbstractButton {
    Q_OBJECT

public:
    OnOffButtonView(ButtonModel& model, const ColourWellModel& well, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();

    ButtonModel& m_model;
    const ColourWellModel& m_well;
};

} // namespace lumeroom
