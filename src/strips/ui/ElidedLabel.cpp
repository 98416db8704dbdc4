#include "strips/ui/ElidedLabel.h"

#include "strips/ui/CardLook.h"
#include "strips/ui/Mirror.h"

#include <QPainter>

namespace lumeroom {

ElidedLabel::ElidedLabel(TextModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    followModel(m_model, this, &ElidedLabel::mirror);
}

void ElidedLabel::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void ElidedLabel::setSoft(bool soft)
{
    m_soft = soft;
    update();
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_text), fontMetrics().height() + 2};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void ElidedLabel::mirror()
{
    mirrorControl(*this, m_model);
    m_text = QString::fromStdString(m_model.shownText());
    setAccessibleName(m_text);
    fit();
    emit nameChanged();
}

void ElidedLabel::fit()
{
    const QString line = m_text.simplified(); // a name may hold line breaks
    m_shown = fontMetrics().elidedText(line, Qt::ElideMiddle, width());
    setToolTip(m_shown == line ? QString() : plainToolTip(m_text));
    update();
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_soft ? softText(*this) : palette().color(QPalette::WindowText));
    painter.drawText(
        rect(), static_cast<int>(m_alignment | Qt::AlignVCenter) | Qt::TextSingleLine, m_shown);
}

void ElidedLabel::resizeEvent(QResizeEvent*)
{
    fit();
}

} // namespace lumeroom
