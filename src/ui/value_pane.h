#pragma once

#include "tree/tree.h"
#include "ui/value_model.h"

#include <cstddef>
#include <optional>

#include <QTreeView>

class QMenu;

namespace tessaview {

/// The right pane: the fields of the node that is selected in the tree. A row of bytes announces
/// them when it is chosen.
class CTransponderValuePaneWnd : public QTreeView {
    Q_OBJECT

public:
    explicit CTransponderValuePaneWnd(QWidget* parent);

    /// Shows the rows of a node; one that stands for a mere group leaves the pane as it is.
    void showNode(const NodeView& node);
    void clear();

    const ValueModel& valueModel() const { return *model_; }
    std::optional<std::size_t> selectedRow() const;
    void selectRow(std::size_t row);

    /// The menu of the selected row: what belongs to it first; it belongs to the caller.
    QMenu* contextMenu();

    void copyValue() const;
    void copyRow() const;
    void copyAllRows() const;

signals:
    /// A row that holds bytes was chosen; they stay valid while the model does not change.
    void bytesChosen(std::span<const std::uint8_t> bytes);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void fitColumns();

    ValueModel* model_;
    QAction* copyValue_;
    QAction* copyRow_;
    QAction* copyAllRows_;
    bool isNameWidthChosen_ = false; ///< by the user
    bool isDataWidthChosen_ = false;
    bool isFitting_ = false;
};

} // namespace tessaview
