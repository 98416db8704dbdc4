#include "app/ui/ControlPanelWindow.h"

#include "app/NavigationModel.h"
#include "app/ui/AlertBox.h"
#include "app/ui/BringToFront.h"
#include "app/ui/FindBar.h"
#include "app/ui/NavigationView.h"
#include "app/ui/NoticeView.h"
#include "app/ui/StripScroller.h"
#include "app/ui/Throbber.h"
#include "app/ui/WorkflowPopoverView.h"
#include "strips/LayoutManager.h"
#include "strips/MenuModel.h"
#include "strips/ui/AccessibleViews.h"
#include "strips/ui/ColourPickerPopover.h"
#include "strips/ui/ControlStripView.h"
#include "strips/ui/FadeIn.h"
#include "strips/ui/MenuEntry.h"
#include "strips/ui/ScrollIntoSight.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {

constexpr QSize kFirstSize{1065, 560}; // three squares side by side, and three rows of them
constexpr int kResizeRestMilliseconds = 250;

QSize qSize(Size size)
{
    return {static_cast<int>(size.width), static_cast<int>(size.height)};
}

Size sizeFrom(QSize size)
{
    return {static_cast<float>(size.width()), static_cast<float>(size.height())};
}

/// What the bar takes of the window.
int heightOf(const QWidget* bar)
{
    return bar && !bar->isHidden() ? bar->sizeHint().height() : 0;
}

} // namespace

ControlPanelWindow::ControlPanelWindow()
    : m_contentView(new QWidget)
    , m_keyboard(*m_contentView)
    , m_scrollView(new StripScroller(m_contentView, this))
    , m_mainWindowThrobber(new Throbber(m_scrollView))
    , m_resizeRest(new QTimer(this))
    , m_colourPicker(std::make_unique<ColourPickerPopover>())
{
    announceViews();
    m_contentView->setAccessibleName(tr("strips"));
    auto* content = new QWidget(this);
    m_row = new QHBoxLayout(content);
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(0);
    m_column = new QVBoxLayout;
    m_column->setSpacing(0);
    m_column->addWidget(m_scrollView, 1);
    m_row->addLayout(m_column, 1);
    setCentralWidget(content);
    resize(kFirstSize.boundedTo(screen()->availableGeometry().size()));
    m_resizeRest->setSingleShot(true);
    m_resizeRest->setInterval(kResizeRestMilliseconds);
    connect(m_resizeRest, &QTimer::timeout, this, [this] { endLiveResize(); });
}

ControlPanelWindow::~ControlPanelWindow() = default;

void ControlPanelWindow::setTitle(const std::string& title)
{
    setWindowTitle(QString::fromStdString(title));
}

void ControlPanelWindow::startThrobber()
{
    m_keyboard.settle();
    placeThrobber();
    m_mainWindowThrobber->start();
}

void ControlPanelWindow::stopThrobber()
{
    m_mainWindowThrobber->stop();
}

// It may be one of the notice's own buttons that takes it away.
void ControlPanelWindow::showNotice(const std::optional<PanelNotice>& notice)
{
    if (notice) {
        if (!m_notice)
            m_notice = new NoticeView(m_scrollView);
        m_notice->setNotice(*notice);
        m_notice->show();
    } else if (auto* before = std::exchange(m_notice, nullptr)) {
        before->hide();
        before->deleteLater();
    }
    m_keyboard.settle();
}

void ControlPanelWindow::placeThrobber()
{
    const QSize room = m_scrollView->size() - m_mainWindowThrobber->size();
    m_mainWindowThrobber->move(room.width() / 2, room.height() / 2);
}

void ControlPanelWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    placeThrobber();
    if (event->spontaneous())
        m_resizeRest->start();
}

/// What was asked for before the window showed was for its content, and the menu bar came since.
void ControlPanelWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!std::exchange(m_shownBefore, true) && m_askedSize.isValid())
        setContentSize(sizeFrom(m_askedSize));
}

/// The desktop has no message for the end of a resize: it has ended once the size rests and no
/// button is held. A size that the desktop insists on is told once.
void ControlPanelWindow::endLiveResize()
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        m_resizeRest->start();
        return;
    }
    if (m_endedSize == size())
        return;
    m_endedSize = size();
    if (m_didEndLiveResize)
        m_didEndLiveResize();
}

void ControlPanelWindow::setDidEndLiveResize(std::function<void()> action)
{
    m_didEndLiveResize = std::move(action);
}

void ControlPanelWindow::setNavigation(NavigationModel& navigation, NavigationActions actions)
{
    auto* view = new NavigationView(navigation, std::move(actions), centralWidget());
    view->setFixedWidth(
        LayoutManager::kBesideTheStrips - style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    m_row->insertWidget(0, view);
    view->stackUnder(m_scrollView); // the order in which it is read out
    m_keyboard.addBefore(view);
    view->setFocus();
}

void ControlPanelWindow::setFind(FindActions actions)
{
    m_findBar = new FindBar(std::move(actions), centralWidget());
    m_column->insertWidget(0, m_findBar);
    m_findBar->stackUnder(m_scrollView);
    m_keyboard.addBefore(m_findBar);
}

void ControlPanelWindow::openFind()
{
    if (m_findBar)
        m_findBar->open();
}

/// The window grows and shrinks by the field: in the layout of upright strips the rows have no
/// other room to give.
void ControlPanelWindow::showFind(const std::optional<FoundCount>& count)
{
    const bool wasHidden = m_findBar->isHidden();
    const Size content = contentSize();
    if (count)
        m_findBar->showCount(*count);
    else
        m_findBar->close();
    if (wasHidden == m_findBar->isHidden())
        return;
    setContentSize(content);
    keepLimits();
    m_keyboard.settle();
}

/// Escape closes the field for a name before it ends a workflow.
bool ControlPanelWindow::event(QEvent* event)
{
    const bool comesFirst = event->type() == QEvent::ShortcutOverride && heightOf(m_findBar) > 0
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (comesFirst)
        event->accept();
    return comesFirst || QMainWindow::event(event);
}

/// A letter that no control has use for begins a name.
void ControlPanelWindow::keyPressEvent(QKeyEvent* event)
{
    if (!m_findBar || !m_findBar->take(*event))
        QMainWindow::keyPressEvent(event);
}

std::unique_ptr<LampControlStripView> ControlPanelWindow::newControlStripView(
    LampControlStrip& strip, int theme)
{
    if (theme < 0 || theme >= theme::kCount)
        return nullptr;
    m_keyboard.forgetOrder(); // it may name a row that is gone, whose address this one can have
    return std::make_unique<ControlStripView>(strip, theme, *m_colourPicker, m_contentView);
}

Size ControlPanelWindow::contentSize() const
{
    return sizeFrom(QMainWindow::size() - around());
}

Size ControlPanelWindow::screenSize() const
{
    const QSize frame = frameGeometry().size() - geometry().size();
    // The field for a name is there for a moment, and limits nothing that stays.
    return sizeFrom(
        screen()->availableGeometry().size() - frame - QSize(0, heightOf(menuWidget())));
}

Size ControlPanelWindow::scrollViewSize() const
{
    return sizeFrom(m_scrollView->viewport()->size());
}

void ControlPanelWindow::setContainerSize(Size size)
{
    m_contentView->resize(qSize(size));
}

QSize ControlPanelWindow::around() const
{
    return {0, heightOf(menuWidget()) + heightOf(m_findBar)};
}

// The window takes a size that is asked for whatever its limits are. Those that follow are widened
// to include it: a window cannot be outside of its limits on this desktop.
void ControlPanelWindow::setContentSize(Size size)
{
    if (size.width < 1 || size.height < 1)
        return;
    if (std::exchange(m_askedSize, qSize(size)) != qSize(size))
        m_endedSize = {}; // that the user goes back to the size before is news
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const QSize wanted = m_askedSize + around();
    if (isMaximized() || isFullScreen() || wanted == QMainWindow::size())
        return;
    resize(wanted);
    keepOnScreen();
}

/// A window that has grown over the edge of the screen goes back from it, as far as there is room.
void ControlPanelWindow::keepOnScreen()
{
    const QRect room = screen()->availableGeometry();
    const QRect frame = frameGeometry();
    const QPoint over = frame.bottomRight() - room.bottomRight();
    const QPoint place(std::max(room.left(), frame.left() - std::max(0, over.x())),
        std::max(room.top(), frame.top() - std::max(0, over.y())));
    if (isVisible() && place != frame.topLeft())
        move(place);
}

void ControlPanelWindow::setContentMinSize(Size size)
{
    m_leastSize = qSize(size);
    keepLimits();
}

void ControlPanelWindow::setContentMaxSize(Size size)
{
    if (size.width >= 1 && size.height >= 1)
        m_mostSize = qSize(size);
    keepLimits();
}

void ControlPanelWindow::keepLimits()
{
    if (m_mostSize.isValid())
        setMaximumSize(m_mostSize.expandedTo(m_askedSize) + around());
    if (m_leastSize.isValid())
        setMinimumSize(m_leastSize.boundedTo(m_askedSize) + around());
}

void ControlPanelWindow::setScrollers(bool horizontal, bool vertical)
{
    m_scrollers = {horizontal, vertical};
    const auto policy
        = [](bool needed) { return needed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff; };
    m_scrollView->setHorizontalScrollBarPolicy(policy(horizontal));
    m_scrollView->setVerticalScrollBarPolicy(policy(vertical || m_workflowPopover));
}

void ControlPanelWindow::reveal(const LampControlStripView& row)
{
    scrollIntoSight(row, *m_scrollView);
}

void ControlPanelWindow::popUpMenu(MenuModel& menu, Point at)
{
    auto* shown = new QMenu(this);
    shown->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& item : menu.items())
        addMenuEntry(*shown, borrowed(menu), item);
    shown->popup(mapToGlobal(QPoint(static_cast<int>(at.x), static_cast<int>(at.y))));
}

void ControlPanelWindow::showWorkflowPopover(const WorkflowPopover& popover)
{
    closeWorkflowPopover();
    m_workflowPopover = new WorkflowPopoverView(popover, centralWidget());
    m_column->addWidget(m_workflowPopover);
    shareRoomWithWorkflow();
    m_workflowPopover->show();
    fadeIn(*m_workflowPopover);
    bringWorkflowPopoverToFront();
}

/// What stood where the popover is has to be within reach, and the rows are told of their new room
/// at once.
void ControlPanelWindow::shareRoomWithWorkflow()
{
    setScrollers(m_scrollers.first, m_scrollers.second);
    centralWidget()->layout()->activate();
    placeThrobber();
}

void ControlPanelWindow::updateWorkflowPopover()
{
    if (m_workflowPopover)
        m_workflowPopover->showState();
}

void ControlPanelWindow::bringWorkflowPopoverToFront()
{
    if (!m_workflowPopover)
        return;
    QWidget* place = m_workflowPopover->nameField();
    if (auto* first = place ? nullptr : m_keyboard.firstRow()) {
        place = dynamic_cast<QWidget*>(first);
        reveal(*first);
    }
    if (place)
        place->setFocus(Qt::PopupFocusReason);
}

// It may be the popover's own button that closes it.
void ControlPanelWindow::closeWorkflowPopover()
{
    auto* popover = std::exchange(m_workflowPopover, nullptr);
    if (!popover)
        return;
    if (QWidget* focus = focusWidget(); focus && popover->isAncestorOf(focus))
        focus->clearFocus();
    popover->hide();
    popover->deleteLater();
    shareRoomWithWorkflow();
    m_keyboard.settle();
}

void ControlPanelWindow::makeKeyAndFront()
{
    bringToFront(*this);
}

int ControlPanelWindow::runModal(const Alert& alert)
{
    return runAlertBox(alert, this);
}

} // namespace lumeroom
