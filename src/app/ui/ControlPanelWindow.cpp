#include "app/ui/ControlPanelWindow.h"

#include "app/ui/Throbber.h"
#include "strips/ui/ControlStripView.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace lumeroom {

namespace {
constexpr QSize kFirstSize{860, 420};
constexpr int kLeastWidth = 700;
constexpr int kLeastHeight = 160;
} // namespace

ControlPanelWindow::ControlPanelWindow()
    : m_scrollView(new QScrollArea(this))
    , m_contentView(new QWidget)
    , m_column(new QVBoxLayout(m_contentView))
    , m_mainWindowThrobber(new Throbber(m_scrollView))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addStretch(1);
    m_scrollView->setWidget(m_contentView);
    m_scrollView->setWidgetResizable(true);
    m_scrollView->setFrameShape(QFrame::NoFrame);
    m_scrollView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollView->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(m_scrollView);
    setMinimumSize(kLeastWidth, kLeastHeight);
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

void ControlPanelWindow::showStrips(const Strips& strips)
{
    std::vector<ControlStripView*> views;
    for (const auto& strip : strips) {
        const auto known = std::find_if(m_stripViews.begin(), m_stripViews.end(),
            [&strip](const ControlStripView* view) { return view && view->strip() == strip; });
        if (known == m_stripViews.end()) {
            views.push_back(new ControlStripView(strip, m_contentView));
        } else {
            views.push_back(*known);
            *known = nullptr;
        }
    }
    for (ControlStripView* gone : m_stripViews)
        delete gone;
    m_stripViews = std::move(views);
    for (std::size_t i = 0; i < m_stripViews.size(); ++i)
        m_column->insertWidget(static_cast<int>(i), m_stripViews[i]);
    // The keyboard goes through the strips as the eye does.
    for (ControlStripView* view : m_stripViews)
        view->show();
    fitHeight();
}

/// The first strips set the height of a window that nobody has sized yet.
void ControlPanelWindow::fitHeight()
{
    if (m_hasHadStrips || m_stripViews.empty())
        return;
    m_hasHadStrips = true;
    const int wanted = static_cast<int>(m_stripViews.size()) * m_stripViews.front()->height()
        + height() - m_scrollView->viewport()->height();
    const int most = screen()->availableGeometry().height() * 4 / 5;
    resize(width(), std::clamp(wanted, kLeastHeight, most));
}

bool ControlPanelWindow::popoverIsOpen() const
{
    return std::any_of(m_stripViews.begin(), m_stripViews.end(),
        [](const ControlStripView* view) { return view->popoverIsOpen(); });
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
