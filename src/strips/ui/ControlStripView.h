#pragma once

#include "strips/LampControlStrip.h"

#include <QWidget>

class QLabel;

namespace lumeroom {

/// One strip as a row: power, name, the four sliders and the swatch.
class ControlStripView : public QWidget, public LampControlStripView {
    Q_OBJECT

public:
    explicit ControlStripView(LampControlStrip& strip, QWidget* parent = nullptr);
    ~ControlStripView() override;

    LampControlStrip& strip() const { return m_strip; }

    Size size() const override;
    Point origin() const override;
    void setOrigin(Point origin, bool gliding) override;
    void setShown(bool shown) override;
    bool isBeingDragged() const override { return false; }
    bool hitTest(Point point) const override;
    void showReNamePopover(const std::string& name) override;
    bool popoverIsOpen() const override;
    void popUpEffectMenu(const std::vector<EffectMenuItem>& menu) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void mirrorLabel();
    void nameControls();

    LampControlStrip& m_strip;
    QLabel* m_name = nullptr;
    QWidget* m_popover = nullptr;
};

} // namespace lumeroom
