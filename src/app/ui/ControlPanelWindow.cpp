#include "app/ui/ControlPanelWindow.h"

#include "app/NavigationModel.h"
#include "app/ui/AlertBox.h"
#include "app/ui/BringToFront.h"
#include "app/ui/NavigationView.h"
#include "app/ui/Throbber.h"
#include "app/ui/WorkflowPopoverView.h"
#include "strips/LayoutManager.h"
#include "strips/MenuModel.h"
#include "strips/ui/ColourPickerPopover.h"
#include "strips/ui/ControlStripView.h"
#include "strips/ui/FadeIn.h"
#include "strips/ui/MenuEntry.h"
#include "strips/ui/Painting.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {

constexpr QSize kFirstSize{915, 540}; // three squares side by side, and three rows of them
constexpr int kResizeRestMilliseconds = 250;

QSize qSize(Size size)
{
    return {static_cast<int>(size.width), static_cast<int>(size.height)};
}

Size sizeFrom(QSize size)
{
    return {static_cast<float>(size.width()), static_cast<float>(size.height())};
}

} // namespace

ControlPanelWindow::ControlPanelWindow()
    : m_scrollView(new QScrollArea(this))
    , m_contentView(new QWidget)
    , m_mainWindowThrobber(new Throbber(m_scrollView))
    , m_resizeRest(new QTimer(this))
    , m_colourPicker(std::make_unique<ColourPickerPopover>())
{
    m_scrollView->setWidget(m_contentView);
    m_scrollView->setFrameShape(QFrame::NoFrame);
    m_scrollView->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget(this);
    m_row = new QHBoxLayout(content);
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(0);
    m_row->addWidget(m_scrollView, 1);
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
    settleFocus();
    placeThrobber();
    m_mainWindowThrobber->start();
}

void ControlPanelWindow::stopThrobber()
{
    m_mainWindowThrobber->stop();
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
    if (m_workflowPopover)
        m_workflowPopover->keepInside();
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
    m_navigation = view;
    view->setFocus();
}

std::unique_ptr<LampControlStripView> ControlPanelWindow::newControlStripView(
    LampControlStrip& strip, int theme)
{
    if (theme < 0 || theme >= theme::kCount)
        return nullptr;
    m_keyboardOrder.clear(); // it may name a row that is gone, whose address this one can have
    return std::make_unique<ControlStripView>(strip, theme, *m_colourPicker, m_contentView);
}

Size ControlPanelWindow::contentSize() const
{
    return sizeFrom(QMainWindow::size() - around());
}

Size ControlPanelWindow::screenSize() const
{
    const QSize frame = frameGeometry().size() - geometry().size();
    return sizeFrom(screen()->availableGeometry().size() - frame - around());
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
    const QWidget* bar = menuWidget();
    return {0, bar && !bar->isHidden() ? bar->sizeHint().height() : 0};
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
    setMinimumSize(qSize(size).boundedTo(m_askedSize) + around());
}

void ControlPanelWindow::setContentMaxSize(Size size)
{
    if (size.width >= 1 && size.height >= 1)
        setMaximumSize(qSize(size).expandedTo(m_askedSize) + around());
}

void ControlPanelWindow::setScrollers(bool horizontal, bool vertical)
{
    const auto policy
        = [](bool needed) { return needed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff; };
    m_scrollView->setHorizontalScrollBarPolicy(policy(horizontal));
    m_scrollView->setVerticalScrollBarPolicy(policy(vertical));
}

void ControlPanelWindow::keepFocus()
{
    const QWidget* focus = focusWidget();
    if (focus && m_contentView->isAncestorOf(focus))
        m_focusedControl = focus->accessibleName();
}

void ControlPanelWindow::settleFocus()
{
    const auto isUsable = [](const QWidget* widget) {
        return widget && widget->isEnabled() && !widget->isHidden();
    };
    if (isUsable(focusWidget()))
        return;
    QWidget* place = m_navigation;
    for (QWidget* control : m_contentView->findChildren<QWidget*>()) {
        if (!m_focusedControl.isEmpty() && control->accessibleName() == m_focusedControl
            && isUsable(control) && !control->parentWidget()->isHidden()) {
            place = control;
            break;
        }
    }
    if (place)
        place->setFocus();
}

// The keyboard goes through the rows as the eye does.
void ControlPanelWindow::setKeyboardOrder(const std::vector<LampControlStripView*>& rows)
{
    settleFocus();
    if (std::exchange(m_keyboardOrder, rows) == rows)
        return;
    QWidget* last = nullptr;
    for (LampControlStripView* row : rows) {
        const auto* widget = dynamic_cast<QWidget*>(row);
        if (!widget)
            continue;
        for (QWidget* control : widget->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus)
                continue;
            if (last)
                setTabOrder(last, control);
            last = control;
        }
    }
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
    QWidget* over = m_scrollView->viewport();
    m_workflowPopover = new WorkflowPopoverView(popover, over);
    const QPoint origin = m_contentView->mapTo(over, QPoint());
    m_workflowPopover->placeBeside(qRect(popover.pointsAt).toAlignedRect().translated(origin));
    m_workflowPopover->show();
    fadeIn(*m_workflowPopover);
    m_workflowPopover->takeFocus();
}

void ControlPanelWindow::bringWorkflowPopoverToFront()
{
    if (m_workflowPopover)
        m_workflowPopover->takeFocus();
}

// It may be the popover's own button that closes it.
void ControlPanelWindow::closeWorkflowPopover()
{
    if (auto* popover = std::exchange(m_workflowPopover, nullptr)) {
        if (QWidget* focus = focusWidget(); focus && popover->isAncestorOf(focus))
            focus->clearFocus();
        popover->hide();
        popover->deleteLater();
        settleFocus();
    }
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
