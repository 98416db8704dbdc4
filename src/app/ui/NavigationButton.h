#pragma once

#include "strips/ui/Icons.h"

#include <QAbstractButton>

namespace lumeroom {

class ButtonModel;

/// A row with a picture and a word; while it is on, it has a coloured ground.
class NavigationButton : public QAbstractButton {
    Q_OBJECT

public:
    NavigationButton(ButtonModel& model, const QString& text, Icon icon, QWidget* parent);
    /// A push button that only acts.
    NavigationButton(const QString& text, Icon icon, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();

    Icon m_icon;
    ButtonModel* m_model = nullptr;
};

} // namespace lumeroom
