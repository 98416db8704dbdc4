#pragma once

#include "app/bridgeExplorer.h"

#include <QAbstractItemModel>

namespace lumeroom {

/// The explorer's tree for a view. A reload changes only the rows that differ, so that expanded
/// rows and the selection stay.
class ExplorerModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit ExplorerModel(const bridgeExplorer& explorer, QObject* parent = nullptr);
    ~ExplorerModel() override;

    /// Takes over what the explorer has loaded.
    void reload();

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row;

    Row& rowAt(const QModelIndex& index) const;
    void update(Row& row, const QModelIndex& index);
    void removeRowsWithout(Row& row, const QModelIndex& index, const std::vector<keyValPair>& kept);

    const bridgeExplorer& m_explorer;
    std::unique_ptr<Row> m_root;
};

} // namespace lumeroom
