#include "app/ui/ControlPanelWindow.h"

#include "app/ui/Throbber.h"
#include "strips/ui/ControlStripView.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr QSize kFirstSize{860, 420};

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
{
    m_scrollView->setWidget(m_contentView);
    m_scrollView->setFrameShape(QFrame::NoFrame);
    m_scrollView->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(m_scrollView);
    resize(kFirstSize);
}

ControlPanelWindow::~ControlPanelWindow() = default;

void ControlPanelWindow::setTitle(const std::string& title)
{
    setWindowTitle(QString::fromStdString(title));
}

void ControlPanelWindow::startThrobber()
{
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
}

void ControlPanelWindow::setNavigation(NavigationModel&) { }

std::unique_ptr<LampControlStripView> ControlPanelWindow::newControlStripView(
    LampControlStrip& strip, int)
{
    return std::make_unique<ControlStripView>(strip, m_contentView);
}

Size ControlPanelWindow::contentSize() const
{
    return sizeFrom(centralWidget()->size());
}

Size ControlPanelWindow::screenSize() const
{
    return sizeFrom(screen()->availableGeometry().size());
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
    return size() - centralWidget()->size();
}

void ControlPanelWindow::setContentSize(Size size)
{
    resize(qSize(size) + around());
}

void ControlPanelWindow::setContentMinSize(Size size)
{
    setMinimumSize(qSize(size) + around());
}

void ControlPanelWindow::setContentMaxSize(Size size)
{
    setMaximumSize(qSize(size) + around());
}

void ControlPanelWindow::setScrollers(bool horizontal, bool vertical)
{
    const auto policy
        = [](bool needed) { return needed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff; };
    m_scrollView->setHorizontalScrollBarPolicy(policy(horizontal));
    m_scrollView->setVerticalScrollBarPolicy(policy(vertical));
}

void ControlPanelWindow::setKeyboardOrder(const std::vector<LampControlStripView*>&) { }

void ControlPanelWindow::showWorkflowPopover(const WorkflowPopover&) { }

void ControlPanelWindow::closeWorkflowPopover() { }

bool ControlPanelWindow::popoverIsOpen() const
{
    return false;
}

void ControlPanelWindow::makeKeyAndFront()
{
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

int ControlPanelWindow::runModal(const Alert& alert)
{
    QMessageBox box(this);
    box.setWindowTitle(QString::fromStdString(alert.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(alert.title));
    box.setInformativeText(QString::fromStdString(alert.text));
    std::vector<QAbstractButton*> buttons;
    for (const std::string& title : alert.buttons)
        buttons.push_back(box.addButton(QString::fromStdString(title), QMessageBox::AcceptRole));
    box.exec();
    const auto pressed = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return pressed == buttons.end() ? 0 : static_cast<int>(pressed - buttons.begin());
}

} // namespace lumeroom
