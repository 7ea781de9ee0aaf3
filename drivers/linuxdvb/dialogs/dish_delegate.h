#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace tessaview {

/// Edits the cells of a DishModel in place: by a choice that opens at once, or by a number.
class DishDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// High enough for an editor.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

    /// Takes the value of a cell that is being edited.
    void finish();

private:
    QWidget* createChoice(QWidget* parent, const QStringList& texts) const;

    mutable QPointer<QWidget> editor_; // of the cell that was edited last
};

} // namespace tessaview
