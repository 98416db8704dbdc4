#pragma once

#include "app/PanelView.h"

#include <QMainWindow>

#include <vector>

class QScrollArea;
class QVBoxLayout;

namespace lumeroom {

class ControlStripView;
class Throbber;

/// The window of the control panel: the strips one below the other.
class ControlPanelWindow : public QMainWindow, public PanelView {
    Q_OBJECT

public:
    ControlPanelWindow();
    ~ControlPanelWindow() override;

    void setTitle(const std::string& title) override;
    void startThrobber() override;
    void stopThrobber() override;
    void showStrips(const Strips& strips) override;
    bool popoverIsOpen() const override;
    void makeKeyAndFront() override;
    int runModal(const Alert& alert) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeThrobber();
    void fitHeight();

    QScrollArea* m_scrollView;
    QWidget* m_contentView;
    QVBoxLayout* m_column;
    Throbber* m_mainWindowThrobber;
    std::vector<ControlStripView*> m_stripViews;
    bool m_hasHadStrips = false;
};

} // namespace lumeroom
