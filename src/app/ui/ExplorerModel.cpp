#include "app/ui/ExplorerModel.h"

#include <algorithm>

namespace lumeroom {

struct ExplorerModel::Row {
    keyValPair item;
    Row* parent = nullptr;
    std::vector<std::unique_ptr<Row>> children{};

    bool isLeaf() const { return parent && !bridgeExplorer::isItemExpandable(item); }
    int place() const
    {
        const auto& rows = parent->children;
        return static_cast<int>(std::distance(rows.begin(),
            std::find_if(
                rows.begin(), rows.end(), [this](const auto& row) { return row.get() == this; })));
    }
    /// Whether it shows the same thing as before: a text that changed is still the same row.
    bool stands(const keyValPair& now) const
    {
        const bool leafNow = !bridgeExplorer::isItemExpandable(now);
        return isLeaf() ? leafNow : !leafNow && item.key == now.key;
    }
};

ExplorerModel::ExplorerModel(const bridgeExplorer& explorer, QObject* parent)
    : QAbstractItemModel(parent)
    , m_explorer(explorer)
    , m_root(std::make_unique<Row>())
{
    reload();
}

ExplorerModel::~ExplorerModel() = default;

void ExplorerModel::reload()
{
    update(*m_root, QModelIndex());
}

void ExplorerModel::update(Row& row, const QModelIndex& index)
{
    const keyValPair* item = row.parent ? &row.item : nullptr;
    std::vector<keyValPair> items;
    for (std::size_t i = 0; i < m_explorer.numberOfChildrenOfItem(item); ++i)
        items.push_back(m_explorer.childOfItem(i, item));

    removeRowsWithout(row, index, items);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const int place = static_cast<int>(i);
        if (i < row.children.size() && row.children[i]->stands(items[i])) {
            Row& child = *row.children[i];
            const bool changed = child.item.key != items[i].key;
            child.item = items[i];
            const QModelIndex at = createIndex(place, 0, &child);
            if (changed)
                emit dataChanged(at, at);
        } else {
            beginInsertRows(index, place, place);
            row.children.insert(
                row.children.begin() + place, std::make_unique<Row>(Row{items[i], &row}));
            endInsertRows();
        }
        Row& child = *row.children[i];
        update(child, createIndex(place, 0, &child));
    }
}

/// Both lists are in the dictionary's order, so what is left stands in the order of `kept`.
void ExplorerModel::removeRowsWithout(
    Row& row, const QModelIndex& index, const std::vector<keyValPair>& kept)
{
    for (auto place = static_cast<int>(row.children.size()) - 1; place >= 0; --place) {
        const Row& child = *row.children[static_cast<std::size_t>(place)];
        if (std::any_of(kept.begin(), kept.end(),
                [&child](const keyValPair& item) { return child.stands(item); }))
            continue;
        beginRemoveRows(index, place, place);
        row.children.erase(row.children.begin() + place);
        endRemoveRows();
    }
}

ExplorerModel::Row& ExplorerModel::rowAt(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<Row*>(index.internalPointer()) : *m_root;
}

QModelIndex ExplorerModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, rowAt(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex ExplorerModel::parent(const QModelIndex& child) const
{
    Row* above = rowAt(child).parent;
    return above && above->parent ? createIndex(above->place(), 0, above) : QModelIndex();
}

int ExplorerModel::rowCount(const QModelIndex& parent) const
{
    return static_cast<int>(rowAt(parent).children.size());
}

int ExplorerModel::columnCount(const QModelIndex&) const
{
    return 1;
}

bool ExplorerModel::hasChildren(const QModelIndex& parent) const
{
    const Row& row = rowAt(parent);
    return row.parent ? bridgeExplorer::isItemExpandable(row.item) : !row.children.empty();
}

QVariant ExplorerModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const Row& row = rowAt(index);
    const std::string& text = bridgeExplorer::objectValueByItem(row.item);
    // A lamp that has not told its name yet.
    return text.empty() && !row.isLeaf() ? tr("(no name)") : QString::fromStdString(text);
}

} // namespace lumeroom
