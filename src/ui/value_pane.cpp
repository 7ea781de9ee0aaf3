#include "ui/value_pane.h"

#include "explorer/commands.h"
#include "explorer/copy_text.h"
#include "log/log_file.h"
#include "ui/focus_selection.h"
#include "ui/text.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QStyledItemDelegate>

namespace tessaview {

namespace {

constexpr int kNameWidth = 100;
constexpr int kDataWidth = 500;

void copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

/// Draws the data of rows, and behind bytes that are only the first of more how many there are.
class DataDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto& model = static_cast<const ValueModel&>(*index.model());
        const ValueRow& row = model.rows()[static_cast<std::size_t>(index.row())];
        if (row.item == RowItem::Bytes && !row.remark.empty())
            option->text += QLatin1Char(' ') + toQString(row.remark);
    }
};

} // namespace

CTransponderValuePaneWnd::CTransponderValuePaneWnd(QWidget* parent)
    : QTreeView(parent)
    , model_(new ValueModel(this))
    , copyValue_(new QAction(QStringLiteral("&Copy value"), this))
    , copyRow_(new QAction(QStringLiteral("Copy &row"), this))
    , copyAllRows_(new QAction(QStringLiteral("Copy &all rows"), this))
{
    setModel(model_);
    setItemDelegateForColumn(ValueModel::kData, new DataDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(SingleSelection);
    setAccessibleName(QStringLiteral("Values"));
    header()->resizeSection(ValueModel::kName, kNameWidth);
    header()->resizeSection(ValueModel::kData, kDataWidth);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    connect(header(), &QHeaderView::sectionResized, this, [this](int section) {
        if (isFitting_)
            return;
        auto& isChosen = section == ValueModel::kName ? isNameWidthChosen_ : isDataWidthChosen_;
        isChosen = true;
        fitColumns();
    });

    copyValue_->setShortcuts(QKeySequence::Copy);
    copyAllRows_->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    connect(copyValue_, &QAction::triggered, this, &CTransponderValuePaneWnd::copyValue);
    connect(copyRow_, &QAction::triggered, this, &CTransponderValuePaneWnd::copyRow);
    connect(copyAllRows_, &QAction::triggered, this, &CTransponderValuePaneWnd::copyAllRows);
    for (QAction* action : {copyValue_, copyRow_, copyAllRows_}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
    }
}

void CTransponderValuePaneWnd::showNode(const NodeView& node)
{
    switch (node.kind().item) {
    case NodeItem::None:
        break;
    case NodeItem::Plain:
        clear();
        break;
    case NodeItem::Filled:
        model_->fill(valueRows(node));
        fitColumns();
        break;
    }
}

void CTransponderValuePaneWnd::clear()
{
    model_->fill({});
}

/// Makes room for the longest name, and for the data as much as is left, but at least for the
/// longest text; a width that the user has chosen stays.
void CTransponderValuePaneWnd::fitColumns()
{
    isFitting_ = true;
    if (!isNameWidthChosen_)
        setColumnWidth(ValueModel::kName, std::max(columnWidth(ValueModel::kName),
                                                   sizeHintForColumn(ValueModel::kName)));
    const int wanted = model_->rows().empty() ? kDataWidth : sizeHintForColumn(ValueModel::kData);
    if (!isDataWidthChosen_)
        setColumnWidth(ValueModel::kData,
                       std::max(viewport()->width() - columnWidth(ValueModel::kName), wanted));
    isFitting_ = false;
}

void CTransponderValuePaneWnd::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    fitColumns();
}

std::optional<std::size_t> CTransponderValuePaneWnd::selectedRow() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    if (selected.isEmpty())
        return std::nullopt;
    return static_cast<std::size_t>(selected.front().row());
}

void CTransponderValuePaneWnd::selectRow(std::size_t row)
{
    const QModelIndex index = model_->index(static_cast<int>(row), ValueModel::kName);
    setCurrentIndex(index);
    scrollTo(index, PositionAtCenter);
}

void CTransponderValuePaneWnd::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    selectWhenFocusedByKey(*this, event->reason());
}

void CTransponderValuePaneWnd::currentChanged(const QModelIndex& current,
                                              const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (!current.isValid())
        return;
    const ValueRow& row = model_->rows()[static_cast<std::size_t>(current.row())];
    if (row.item == RowItem::Bytes)
        emit bytesChosen(row.bytes);
}

void CTransponderValuePaneWnd::contextMenuEvent(QContextMenuEvent* event)
{
    if (model_->rows().empty())
        return;
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint place = isByKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                                 : event->globalPos();
    const std::unique_ptr<QMenu> menu(contextMenu());
    if (const auto row = selectedRow(); row && model_->rows()[*row].item == RowItem::Pid)
        LogPrint(g_log, log_level::kDetail, "client x=%d,y=%d", place.x(), place.y());
    menu->exec(place);
}

QMenu* CTransponderValuePaneWnd::contextMenu()
{
    auto* const menu = new QMenu(this);
    const auto selected = selectedRow();
    const ValueRow* const row = selected ? &model_->rows()[*selected] : nullptr;
    if (row && row->item != RowItem::None)
        LogPrint(g_log, log_level::kInformation, "pBase=%#zx", reinterpret_cast<std::size_t>(row));
    if (row && row->item == RowItem::Pid) {
        LogPrint(g_log, log_level::kInformation, "context menu");
        for (const ContextItem& item : pidMenuItems())
            menu->addAction(toQString(item.text))->setEnabled(false);
        menu->addSeparator();
    }
    if (row)
        menu->addActions({copyValue_, copyRow_});
    menu->addAction(copyAllRows_);
    return menu;
}

void CTransponderValuePaneWnd::copyValue() const
{
    if (const auto row = selectedRow())
        copyText(toQString(dataText(model_->rows()[*row])));
}

void CTransponderValuePaneWnd::copyRow() const
{
    if (const auto row = selectedRow())
        copyText(toQString(rowsText({&model_->rows()[*row], 1})));
}

void CTransponderValuePaneWnd::copyAllRows() const
{
    if (!model_->rows().empty())
        copyText(toQString(rowsText(model_->rows())));
}

} // namespace tessaview
