#pragma once

#include "tree/value_row.h"

#include <vector>

#include <QAbstractTableModel>

namespace tessaview {

/// The rows of the value pane: "Name" and "Data".
class ValueModel : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int kName = 0;
    static constexpr int kData = 1;

    using QAbstractTableModel::QAbstractTableModel;

    void fill(std::vector<ValueRow> rows);

    const std::vector<ValueRow>& rows() const { return rows_; }

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<ValueRow> rows_;
};

} // namespace tessaview
