#include "strips/ui/AccessibleViews.h"

#include "strips/ui/DragHandle.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QButtonGroup>
#include <QMetaEnum>

namespace lumeroom {

namespace {

/// Moves the strip one place back or on: who speaks to a computer has no arrow keys.
class AccessibleHandle : public QAccessibleWidget {
public:
    explicit AccessibleHandle(DragHandle& handle)
        : QAccessibleWidget(&handle, QAccessible::Button)
        , m_handle(handle)
    {
    }

    QStringList actionNames() const override
    {
        return QStringList{decreaseAction(), increaseAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& action) override
    {
        if (action == decreaseAction())
            emit m_handle.arrowPressed(Qt::Key_Left);
        else if (action == increaseAction())
            emit m_handle.arrowPressed(Qt::Key_Right);
        else
            QAccessibleWidget::doAction(action);
    }

private:
    DragHandle& m_handle;
};

/// Its action is a click: Qt's own would change the look of a switch and do nothing. Qt may ask for
/// it before the button is known to be a switch.
class AccessibleButton : public QAccessibleWidget {
public:
    explicit AccessibleButton(QAbstractButton& button)
        : QAccessibleWidget(&button)
        , m_button(button)
    {
    }

    QAccessible::Role role() const override
    {
        if (!m_button.isCheckable())
            return QAccessible::Button;
        return isOneOfMany(m_button) ? QAccessible::RadioButton : QAccessible::CheckBox;
    }

    QString text(QAccessible::Text which) const override
    {
        const QString known = QAccessibleWidget::text(which);
        return which == QAccessible::Name && known.isEmpty() ? m_button.text().remove('&') : known;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = m_button.isCheckable();
        state.checked = m_button.isChecked();
        return state;
    }

    QStringList actionNames() const override
    {
        const QStringList rest = QAccessibleWidget::actionNames();
        return m_button.isEnabled() ? QStringList{ownAction()} + rest : rest;
    }

    void doAction(const QString& action) override
    {
        if (action == ownAction())
            m_button.click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    static bool isOneOfMany(const QAbstractButton& button)
    {
        return button.autoExclusive() || (button.group() && button.group()->exclusive());
    }

    QString ownAction() const { return m_button.isCheckable() ? toggleAction() : pressAction(); }

    QAbstractButton& m_button;
};

QAccessibleInterface* interfaceFor(const QString&, QObject* object)
{
    if (auto* handle = qobject_cast<DragHandle*>(object))
        return new AccessibleHandle(*handle); // Qt owns it, as any of these
    if (auto* button = qobject_cast<QAbstractButton*>(object))
        return new AccessibleButton(*button);
    auto* widget = qobject_cast<QWidget*>(object);
    const QMetaObject* about = object->metaObject();
    const int place = about->indexOfClassInfo("role");
    if (!widget || place < 0)
        return nullptr;
    bool known = false;
    const int role = QMetaEnum::fromType<QAccessible::Role>().keyToValue(
        about->classInfo(place).value(), &known);
    return known ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role)) : nullptr;
}

} // namespace

void announceViews()
{
    QAccessible::installFactory(interfaceFor);
}

} // namespace lumeroom
