#pragma once

#include "explorer/commands.h"
#include "ui/document.h"
#include "ui/tree_model.h"

#include <optional>

#include <QTreeView>

class QMenu;

namespace tessaview {

class CTransponderValuePaneWnd;

/// The left pane: everything that was read as one tree. The node that is selected fills the value
/// pane.
class CTransponderTableListPaneWnd : public QTreeView {
    Q_OBJECT

public:
    CTransponderTableListPaneWnd(CTessaview3Doc& document, CTransponderValuePaneWnd& valuePane,
                                 QWidget* parent);

    void RebuildTree(const NetworkMap& model);
    /// Empties the value pane too, whose rows point into the model.
    void ClearTree();

    const TreeModel& treeModel() const { return *model_; }
    /// The node that is selected.
    std::optional<NodeView> selectedNode() const;
    /// Selects a node, opens the way to it and brings it to the middle.
    void select(const NodeView& node);
    /// Selects nothing, which empties the value pane.
    void deselect();

    /// The original_network_id of the network in which a node is selected.
    std::optional<std::uint32_t> selectedNetwork() const;

    const CharsetPolicy& charsetPolicy() const { return model_->tree().charsetPolicy(); }
    /// Shows labels and values with other character tables.
    void setCharsetPolicy(const CharsetPolicy& policy);

    /// The menu of a node, with what is offered for every node below what belongs to its kind; it
    /// belongs to the caller.
    QMenu* contextMenu(const NodeView& node);

    void copyPath() const;
    void expandBelow();
    void collapseBelow();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void addItems(QMenu& menu, const NodeView& node);
    void setTuner(TunerType type);

    CTessaview3Doc& document_;
    CTransponderValuePaneWnd& valuePane_;
    TreeModel* model_;
    std::optional<NodeId> contextNode_; ///< hit by the last right click
    QAction* copyPath_;
    QAction* expandBelow_;
    QAction* collapseBelow_;
};

} // namespace tessaview
