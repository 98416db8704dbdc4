#pragma once

#include "strips/Controls.h"

#include <QWidget>

namespace lumeroom {

/// The name of a target on one line. What does not fit is cut in the middle, and shown whole in the
/// tool tip.
class ElidedLabel : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("role", "StaticText")

public:
    ElidedLabel(TextModel& model, QWidget* parent);

    /// Left unless told otherwise.
    void setAlignment(Qt::Alignment alignment);
    /// In a softer tone, while the target is off or unknown.
    void setSoft(bool soft);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void nameChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void mirror();
    void fit();

    TextModel& m_model;
    QString m_text;
    QString m_shown;
    bool m_soft = false;
    Qt::Alignment m_alignment = Qt::AlignLeft;
};

} // namespace lumeroom
