#pragma once

#include <QTimer>
#include <QWidget>

namespace lumeroom {

/// A ring of fading dots that turns while the program searches.
class Throbber : public QWidget {
    Q_OBJECT

public:
    explicit Throbber(QWidget* parent = nullptr);

    void start();
    void stop();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer m_timer;
    int m_step = 0;
};

} // namespace lumeroom
