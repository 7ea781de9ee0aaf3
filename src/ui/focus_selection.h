#pragma once

#include <QTreeView>

namespace tessaview {

/// Selects the row that a view has made current without showing it, so that who comes by key sees
/// where the keys act. For the view's handler of the focus.
inline void selectWhenFocusedByKey(const QTreeView& view, Qt::FocusReason reason)
{
    const bool isByKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                         reason == Qt::ShortcutFocusReason;
    QItemSelectionModel& selection = *view.selectionModel();
    if (isByKey && selection.currentIndex().isValid() && !selection.hasSelection())
        selection.select(selection.currentIndex(),
                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace tessaview
