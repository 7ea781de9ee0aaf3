#include "ui/value_model.h"

#include "ui/text.h"

#include <utility>

#include <QTextDocument>

namespace tessaview {

namespace {

/// What the data column has no room for: the whole text, and how it was read. Broadcast texts
/// must not be taken for markup.
QString toolTip(const ValueRow& row)
{
    QString text = toQString(row.data);
    if (!row.remark.empty())
        text += QLatin1Char('\n') + toQString(row.remark);
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace

void ValueModel::fill(std::vector<ValueRow> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int ValueModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ValueModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ValueModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ValueRow& row = rows_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return toQString(index.column() == kName ? row.name : std::string_view(row.data));
    if (role == Qt::ToolTipRole && index.column() == kData && !row.data.empty())
        return toolTip(row);
    if (role == Qt::AccessibleDescriptionRole && index.column() == kData)
        return toQString(row.remark);
    return {};
}

QVariant ValueModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == kName ? QStringLiteral("Name") : QStringLiteral("Data");
}

} // namespace tessaview
