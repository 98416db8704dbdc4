#include "strips/ui/IconButton.h"

#include "strips/ui/Mirror.h"

#include <QEvent>

namespace lumeroom {

IconButton::IconButton(Icon which, const QString& name, QWidget* parent)
    : QToolButton(parent)
    , m_which(which)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(name);
    setToolTip(name.left(1).toUpper() + name.mid(1));
    setIcon(lumeroom::icon(m_which, palette()));
}

IconButton::IconButton(Icon which, const QString& name, ButtonModel& model, QWidget* parent)
    : IconButton(which, name, parent)
{
    m_model = &model;
    connect(this, &QToolButton::clicked, this, [this] { m_model->press(); });
    followModel(model, this, &IconButton::mirror);
}

void IconButton::mirror()
{
    mirrorControl(*this, *m_model);
}

void IconButton::setDemanded(bool demanded)
{
    m_demanded = demanded;
    update();
}

void IconButton::paintEvent(QPaintEvent* event)
{
    if (!m_onDemand || m_demanded || hasFocus() || isDown())
        QToolButton::paintEvent(event);
}

void IconButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        setIcon(lumeroom::icon(m_which, palette()));
    QToolButton::changeEvent(event);
}

} // namespace lumeroom
