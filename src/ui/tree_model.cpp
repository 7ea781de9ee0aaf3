#include "ui/tree_model.h"

#include "ui/text.h"

namespace tessaview {

void TreeModel::rebuild(const NetworkMap& model, const void* valuePane)
{
    beginResetModel();
    tree_.rebuild(model, valuePane);
    endResetModel();
}

void TreeModel::clear()
{
    beginResetModel();
    tree_.clear();
    endResetModel();
}

NodeView TreeModel::node(const QModelIndex& index) const
{
    return {tree_, static_cast<NodeId>(index.internalId())};
}

QModelIndex TreeModel::indexOf(const NodeView& node) const
{
    return createIndex(static_cast<int>(node.row()), 0, quintptr(node.id()));
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return indexOf(parent.isValid() ? node(parent).child(static_cast<std::size_t>(row))
                                    : tree_.root());
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    if (!index.isValid() || node(index).isRoot())
        return {};
    return indexOf(node(index).parent());
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return tree_.empty() ? 0 : 1;
    return parent.column() == 0 ? static_cast<int>(node(parent).childCount()) : 0;
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return toQString(node(index).label());
}

} // namespace tessaview
