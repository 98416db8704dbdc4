#pragma once

#include "strips/ui/Icons.h"

#include <QAbstractButton>

namespace lumeroom {

/// A row of the column beside the strips, with a picture and a word.
class NavigationButton : public QAbstractButton {
    Q_OBJECT

public:
    NavigationButton(const QString& text, Icon icon, QWidget* parent);

    QSize sizeHint() const override;

protected:
    static constexpr int kMargin = 8;
    static constexpr double kRadius = 8;

    void paintEvent(QPaintEvent* event) override;
    /// What lies below the mark of the mouse and of the keyboard: nothing.
    virtual void paintGround(QPainter&, const QRectF&) const { }
    virtual void paintContent(QPainter& painter) const;
    void paintText(QPainter& painter, const QRect& room) const;

private:
    Icon m_icon;
};

} // namespace lumeroom
