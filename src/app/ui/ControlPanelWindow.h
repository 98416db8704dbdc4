#pragma once

#include "app/PanelView.h"

#include <QMainWindow>

class QHBoxLayout;
class QScrollArea;
class QTimer;

namespace lumeroom {

class Throbber;
class ColourPickerPopover;
class WorkflowPopoverView;

/// The window of the control panel: the navigation, and beside it the strips in a container that
/// scrolls.
class ControlPanelWindow : public QMainWindow, public PanelView {
    Q_OBJECT

public:
    ControlPanelWindow();
    ~ControlPanelWindow() override;

    void setTitle(const std::string& title) override;
    void makeKeyAndFront() override;
    int runModal(const Alert& alert) override;
    void setNavigation(NavigationModel& navigation, NavigationActions actions) override;
    void setDidEndLiveResize(std::function<void()> action) override;

    void startThrobber() override;
    void stopThrobber() override;

    std::unique_ptr<LampControlStripView> newControlStripView(
        LampControlStrip& strip, int theme) override;
    Size contentSize() const override;
    Size screenSize() const override;
    Size scrollViewSize() const override;
    void setContainerSize(Size size) override;
    void setContentSize(Size size) override;
    void setContentMinSize(Size size) override;
    void setContentMaxSize(Size size) override;
    void setScrollers(bool horizontal, bool vertical) override;
    void keepFocus() override;
    void setKeyboardOrder(const std::vector<LampControlStripView*>& rows) override;

    void popUpMenu(MenuModel& menu, Point at) override;
    void showWorkflowPopover(const WorkflowPopover& popover) override;
    void bringWorkflowPopoverToFront() override;
    void closeWorkflowPopover() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void placeThrobber();
    void endLiveResize();
    /// What the window has around its content: the menu bar.
    QSize around() const;
    void keepOnScreen();
    /// A keyboard whose place is gone comes back to the control it was on in the rows, or to the
    /// navigation.
    void settleFocus();

    QHBoxLayout* m_row;
    QWidget* m_navigation = nullptr;
    QScrollArea* m_scrollView;
    QWidget* m_contentView;
    Throbber* m_mainWindowThrobber;
    std::function<void()> m_didEndLiveResize;
    QTimer* m_resizeRest; ///< runs out when the window has kept its size for a moment
    QSize m_endedSize; ///< what was told last, unless another size was asked for since
    QSize m_askedSize; ///< of the content
    std::unique_ptr<ColourPickerPopover> m_colourPicker; ///< of all wells
    bool m_shownBefore = false;
    QString m_focusedControl; ///< in a row, by its accessible name
    std::vector<LampControlStripView*> m_keyboardOrder;
    WorkflowPopoverView* m_workflowPopover = nullptr;
};

} // namespace lumeroom
