#include "app/ui/KeyboardPlace.h"

#include "strips/LampControlStripOwner.h"

#include <QWidget>

#include <utility>

namespace lumeroom {

namespace {

bool isUsable(const QWidget* widget)
{
    return widget && widget->isEnabled() && !widget->isHidden();
}

} // namespace

void KeyboardPlace::keep()
{
    const QWidget* focus = m_rows.window()->focusWidget();
    if (focus && m_rows.isAncestorOf(focus))
        m_control = focus->accessibleName();
}

void KeyboardPlace::settle()
{
    if (isUsable(m_rows.window()->focusWidget()))
        return;
    QWidget* place = noted();
    if (!place && !m_before.empty())
        place = m_before.front();
    if (place)
        place->setFocus();
}

QWidget* KeyboardPlace::noted() const
{
    if (m_control.isEmpty())
        return nullptr;
    for (QWidget* control : m_rows.findChildren<QWidget*>()) {
        if (control->accessibleName() == m_control && isUsable(control)
            && !control->parentWidget()->isHidden())
            return control;
    }
    return nullptr;
}

void KeyboardPlace::setOrder(const std::vector<LampControlStripView*>& rows)
{
    settle();
    if (std::exchange(m_order, rows) == rows)
        return;
    QWidget* last = nullptr;
    const auto append = [&last](const QWidget* part) {
        for (QWidget* control : part->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus)
                continue;
            if (last)
                QWidget::setTabOrder(last, control);
            last = control;
        }
    };
    for (const QWidget* part : m_before)
        append(part);
    for (LampControlStripView* row : rows) {
        if (const auto* widget = dynamic_cast<QWidget*>(row))
            append(widget);
    }
}

} // namespace lumeroom
