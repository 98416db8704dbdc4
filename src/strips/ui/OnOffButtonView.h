#pragma once

#include "strips/ColourWellModel.h"

#include <QAbstractButton>

namespace lumeroom {

/// The round on/off button: lit, it shows a pale version of the lamp's colour.
class OnOffButtonView : public QAbstractButton {
    Q_OBJECT

public:
    OnOffButtonView(ButtonModel& model, const ColourWellModel& well, QWidget* parent);

    /// Whether what it shows is known to be so.
    void setCertain(bool certain);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();
    void paintShine(QPainter& painter, const QRectF& oval) const;

    ButtonModel& m_model;
    const ColourWellModel& m_well;
    bool m_certain = true;
};

} // namespace lumeroom
