#pragma once

#include "tree/tree.h"

#include <QAbstractItemModel>

namespace tessaview {

/// The tree of the model as the tree pane shows it: the root is the only row of the top level. An
/// index holds the number of its node, in a way of its own, and nothing else.
class TreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    /// `valuePane` is only named in the log.
    void rebuild(const NetworkMap& model, const void* valuePane);
    void clear();
    /// Shows labels with other character tables.
    void setCharsetPolicy(const CharsetPolicy& policy);

    const Tree& tree() const { return tree_; }
    /// The node of a valid index.
    NodeView node(const QModelIndex& index) const;
    QModelIndex indexOf(const NodeView& node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    bool hasChildren(const QModelIndex& parent) const override { return rowCount(parent) > 0; }
    QVariant data(const QModelIndex& index, int role) const override;

private:
    class Reset;

    Tree tree_;
};

} // namespace tessaview
