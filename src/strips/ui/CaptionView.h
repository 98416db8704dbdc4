#pragma once

#include "strips/StripCaption.h"

#include <QWidget>

namespace lumeroom {

/// The line under a strip's name, in a softer tone: what the target does, what waits to be sent,
/// and for a group the lights of its lamps.
class CaptionView : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("role", "StaticText")

public:
    CaptionView(CaptionModel& model, QWidget* parent);

    /// A child of this, which stands before the text where it is not hidden.
    void setBadge(QWidget& badge);
    /// Left unless told otherwise.
    void setAlignment(Qt::Alignment alignment);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void mirror();
    void fit();
    int badgeWidth() const;
    void paintHint(QPainter& painter, int x) const;
    void paintLights(QPainter& painter, int x) const;
    int hintWidth() const;
    int lightsWidth() const;

    CaptionModel& m_model;
    QString m_text;
    QString m_hint;
    QString m_shown;
    int m_textAt = 0;
    QWidget* m_badge = nullptr;
    Qt::Alignment m_alignment = Qt::AlignLeft;
};

} // namespace lumeroom
