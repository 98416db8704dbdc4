#include "app/ui/ExplorerWindow.h"

#include "app/ui/BringToFront.h"
#include "app/ui/ExplorerModel.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>

namespace lumeroom {

namespace {
constexpr Seconds kRefreshPause(1.0);
constexpr QSize kFirstSize{420, 520};
} // namespace

ExplorerWindow::ExplorerWindow(const LampRegistry& registry, RunLoop& runLoop)
    : m_runLoop(runLoop)
    , m_explorer(registry)
    , m_model(new ExplorerModel(m_explorer, this))
    , m_outlineView(new QTreeView(this))
{
    setWindowTitle(tr("Lamp data explorer"));
    resize(kFirstSize);
    m_outlineView->setModel(m_model);
    m_outlineView->setHeaderHidden(true);
    m_outlineView->setUniformRowHeights(true);
    m_outlineView->setAccessibleName(tr("lamp data"));
    auto* refresh = new QPushButton(tr("&Refresh"), this);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(refresh);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_outlineView, 1);
    column->addLayout(bottom);

    m_explorer.reloadData = [this] { m_model->reload(); };
    m_explorer.makeKeyAndOrderFront = [this] {
        bringToFront(*this);
        for (int row = 0; row < m_model->rowCount({}); ++row)
            m_outlineView->expand(m_model->index(row, 0, {}));
    };
    connect(refresh, &QPushButton::clicked, this, [this] { m_explorer.refresh(); });
    const auto addShortcut = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    addShortcut(QKeySequence(Qt::Key_F5), [this] { m_explorer.refresh(); });
    addShortcut(QKeySequence::Copy, [this] { copy(); });
    addShortcut(QKeySequence::Close, [this] { close(); });
    addShortcut(QKeySequence(Qt::Key_Escape), [this] { close(); });
}

ExplorerWindow::~ExplorerWindow() = default;

void ExplorerWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refreshInASecond();
}

void ExplorerWindow::hideEvent(QHideEvent* event)
{
    m_timer.cancel();
    QWidget::hideEvent(event);
}

void ExplorerWindow::refreshInASecond()
{
    m_timer = m_runLoop.after(kRefreshPause, [this] {
        if (!isMinimized())
            m_explorer.refresh();
        refreshInASecond();
    });
}

void ExplorerWindow::copy() const
{
    if (m_outlineView->currentIndex().isValid())
        QApplication::clipboard()->setText(m_outlineView->currentIndex().data().toString());
}

} // namespace lumeroom
