#include "ui/output_list.h"

#include "ui/output_lines.h"

#include <algorithm>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>

namespace tessaview {

COutputListBox::COutputListBox(OutputLines& lines, QWidget* parent)
    : QTreeView(parent)
    , lines_(lines)
    , copyAll_(new QAction(QStringLiteral("&Copy all lines"), this))
{
    setModel(&lines);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionMode(NoSelection);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAccessibleName(QStringLiteral("Output lines"));
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);

    copyAll_->setShortcuts(QKeySequence::Copy);
    copyAll_->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAll_, &QAction::triggered, this, &COutputListBox::copyAll);
    addAction(copyAll_);

    connect(&lines, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { linesInserted(first, last); });
    connect(&lines, &QAbstractItemModel::modelReset, this, &COutputListBox::restart);
    restart();
}

void COutputListBox::restart()
{
    longest_ = 0;
    linesInserted(0, lines_.rowCount() - 1);
}

void COutputListBox::linesInserted(int first, int last)
{
    makeRoom(first, last);
    scrollToBottom();
}

/// Widens the column to the longest line, for the horizontal scroll bar.
void COutputListBox::makeRoom(int first, int last)
{
    const QFontMetrics metrics = fontMetrics();
    for (int row = first; row <= last; ++row)
        longest_ = std::max(longest_, metrics.horizontalAdvance(lines_.line(row)));
    constexpr int kMargins = 16;
    header()->resizeSection(0, longest_ + kMargins);
}

void COutputListBox::changeEvent(QEvent* event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        restart();
}

void COutputListBox::copyAll() const
{
    QGuiApplication::clipboard()->setText(lines_.text());
}

void COutputListBox::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction(copyAll_);
    menu.exec(event->globalPos());
}

} // namespace tessaview
