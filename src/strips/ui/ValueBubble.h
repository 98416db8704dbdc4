#pragma once

#include <QWidget>

namespace lumeroom {

/// The value of a slider in large type beside its knob, over everything else in the window.
class ValueBubble : public QWidget {
    Q_OBJECT

public:
    explicit ValueBubble(QWidget& slider);

    /// Above the knob or, for an upright slider, beside it, within the window.
    void showAt(QPoint knobInWindow, int knobRadius, Qt::Orientation slider, const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};

} // namespace lumeroom
