#pragma once

#include "app/PanelView.h"
#include "app/ui/KeyboardPlace.h"
#include "strips/ui/FocusRing.h"

#include <QMainWindow>

class QHBoxLayout;
class QScrollArea;
class QTimer;
class QVBoxLayout;

namespace lumeroom {

class FindBar;
class NoticeView;
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
    void showNotice(const std::optional<PanelNotice>& notice) override;

    void setFind(FindActions actions) override;
    void showFind(const std::optional<FoundCount>& count) override;

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
    void reveal(const LampControlStripView& row) override;
    void keepFocus() override { m_keyboard.keep(); }
    void setKeyboardOrder(const std::vector<LampControlStripView*>& rows) override
    {
        m_keyboard.setOrder(rows);
    }

    void popUpMenu(MenuModel& menu, Point at) override;
    void showWorkflowPopover(const WorkflowPopover& popover) override;
    void updateWorkflowPopover() override;
    void bringWorkflowPopoverToFront() override;
    void closeWorkflowPopover() override;

    /// Brings the keyboard to the field for a name.
    void openFind();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void placeThrobber();
    void shareRoomWithWorkflow();
    void endLiveResize();
    /// What the window has around its content: the menu bar, and the field for a name.
    QSize around() const;
    void keepLimits();
    void keepOnScreen();

    FocusRingWatch m_focusRingWatch;
    QHBoxLayout* m_row;
    QVBoxLayout* m_column; ///< of the strips and what is above and below them
    QWidget* m_contentView; ///< of the cards
    KeyboardPlace m_keyboard;
    QScrollArea* m_scrollView;
    Throbber* m_mainWindowThrobber;
    NoticeView* m_notice = nullptr;
    FindBar* m_findBar = nullptr;
    std::function<void()> m_didEndLiveResize;
    QTimer* m_resizeRest; ///< runs out when the window has kept its size for a moment
    QSize m_endedSize; ///< what was told last, unless another size was asked for since
    // Of the content
    QSize m_askedSize;
    QSize m_leastSize;
    QSize m_mostSize;
    std::unique_ptr<ColourPickerPopover> m_colourPicker; ///< of all wells
    bool m_shownBefore = false;
    WorkflowPopoverView* m_workflowPopover = nullptr;
    std::pair<bool, bool> m_scrollers; ///< horizontal and vertical, as far as the layout needs them
};

} // namespace lumeroom
