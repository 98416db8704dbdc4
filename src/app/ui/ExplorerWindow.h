#pragma once

#include "app/bridgeExplorer.h"

#include <QWidget>

class QTreeView;

namespace lumeroom {

class ExplorerModel;

/// Shows the lamp data explorer. While it is shown it refreshes itself every second.
class ExplorerWindow : public QWidget {
    Q_OBJECT

public:
    ExplorerWindow(const LampRegistry& registry, RunLoop& runLoop);
    ~ExplorerWindow() override;

    void loadData() { m_explorer.loadData(); }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void refreshInASecond();
    void copy() const;

    RunLoop& m_runLoop;
    bridgeExplorer m_explorer;
    ExplorerModel* m_model;
    QTreeView* m_outlineView;
    Timer m_timer;
};

} // namespace lumeroom
