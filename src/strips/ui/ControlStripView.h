#pragma once

#include "strips/LampControlStrip.h"

#include <QWidget>

class QLabel;

namespace lumeroom {

/// One strip as a row: power, name, the four sliders and the swatch.
class ControlStripView : public QWidget {
    Q_OBJECT

public:
    explicit ControlStripView(std::shared_ptr<LampControlStrip> strip, QWidget* parent = nullptr);
    ~ControlStripView() override;

    const std::shared_ptr<LampControlStrip>& strip() const { return m_strip; }
    /// Whether the user is editing the name.
    bool popoverIsOpen() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void mirrorLabel();
    void nameControls();
    void showReNamePopover();

    std::shared_ptr<LampControlStrip> m_strip;
    QLabel* m_name = nullptr;
    QWidget* m_popover = nullptr;
};

} // namespace lumeroom
