#include "ui/tree_pane.h"

#include "explorer/charset_settings.h"
#include "explorer/copy_text.h"
#include "explorer/find.h"
#include "log/log_file.h"
#include "ui/focus_selection.h"
#include "ui/message.h"
#include "ui/set_tuner.h"
#include "ui/text.h"
#include "ui/value_pane.h"

#include <memory>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>

namespace tessaview {

namespace {

bool isBelow(NodeView node, const NodeView& top)
{
    while (!node.isRoot() && node.id() > top.id())
        node = node.parent();
    return node.id() == top.id();
}

/// Calls a function for the nodes of a branch that have children, from above.
template <class Function>
void forEachParent(const NodeView& top, Function function)
{
    NodeView node = top;
    do {
        if (node.childCount() > 0)
            function(node);
        node = nodeBelow(node);
    } while (!node.isRoot() && isBelow(node, top));
}

/// Shows that a large branch takes its time.
class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

} // namespace

CTransponderTableListPaneWnd::CTransponderTableListPaneWnd(CTessaview3Doc& document,
                                                           CTransponderValuePaneWnd& valuePane,
                                                           QWidget* parent)
    : QTreeView(parent)
    , document_(document)
    , valuePane_(valuePane)
    , model_(new TreeModel(this))
    , copyPath_(new QAction(QStringLiteral("&Copy path"), this))
    , expandBelow_(new QAction(QStringLiteral("&Expand all below here"), this))
    , collapseBelow_(new QAction(QStringLiteral("C&ollapse all below here"), this))
{
    model_->setCharsetPolicy(storedCharsetPolicy(Settings(defaultSettingsFile())));
    setModel(model_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAccessibleName(QStringLiteral("Networks"));
    // Long labels get a scroll bar instead of an ellipsis; short ones leave no gap at the right.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    copyPath_->setShortcuts(QKeySequence::Copy);
    expandBelow_->setShortcut(Qt::CTRL | Qt::Key_Plus);
    collapseBelow_->setShortcut(Qt::CTRL | Qt::Key_Minus);
    connect(copyPath_, &QAction::triggered, this, &CTransponderTableListPaneWnd::copyPath);
    connect(expandBelow_, &QAction::triggered, this, &CTransponderTableListPaneWnd::expandBelow);
    connect(collapseBelow_, &QAction::triggered, this,
            &CTransponderTableListPaneWnd::collapseBelow);
    for (QAction* action : {copyPath_, expandBelow_, collapseBelow_}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
    }
}

void CTransponderTableListPaneWnd::RebuildTree(const NetworkMap& model)
{
    ClearTree();
    model_->rebuild(model, &valuePane_);
    if (const std::string problem = model_->tree().problem(); !problem.empty())
        complain(this, toQString(problem));
}

void CTransponderTableListPaneWnd::ClearTree()
{
    contextNode_.reset();
    valuePane_.clear();
    model_->clear();
}

std::optional<NodeView> CTransponderTableListPaneWnd::selectedNode() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() ? std::optional(model_->node(current)) : std::nullopt;
}

void CTransponderTableListPaneWnd::select(const NodeView& node)
{
    const QModelIndex index = model_->indexOf(node);
    setCurrentIndex(index);
    scrollTo(index, PositionAtCenter);
}

void CTransponderTableListPaneWnd::deselect()
{
    setCurrentIndex({});
    valuePane_.clear();
}

std::optional<std::uint32_t> CTransponderTableListPaneWnd::selectedNetwork() const
{
    const auto node = selectedNode();
    return node ? node->originalNetworkId() : std::nullopt;
}

void CTransponderTableListPaneWnd::setCharsetPolicy(const CharsetPolicy& policy)
{
    model_->setCharsetPolicy(policy);
    if (const auto node = selectedNode())
        valuePane_.showNode(*node);
}

void CTransponderTableListPaneWnd::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    selectWhenFocusedByKey(*this, event->reason());
}

void CTransponderTableListPaneWnd::currentChanged(const QModelIndex& current,
                                                  const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (current.isValid())
        valuePane_.showNode(model_->node(current));
}

void CTransponderTableListPaneWnd::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeView::resizeEvent(event);
}

void CTransponderTableListPaneWnd::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex hit = isByKey ? currentIndex() : indexAt(event->pos());
    contextNode_.reset();
    if (!hit.isValid())
        return;
    const NodeView node = model_->node(hit);
    contextNode_ = node.id();
    LogPrint(g_log, log_level::kInformation, "selected=%#x", node.id());
    setCurrentIndex(hit);
    const std::unique_ptr<QMenu> menu(contextMenu(node));
    menu->exec(isByKey ? viewport()->mapToGlobal(visualRect(hit).center()) : event->globalPos());
}

QMenu* CTransponderTableListPaneWnd::contextMenu(const NodeView& node)
{
    auto* const menu = new QMenu(this);
    addItems(*menu, node);
    if (!menu->isEmpty())
        menu->addSeparator();
    menu->addAction(copyPath_);
    if (node.childCount() > 0)
        menu->addActions({expandBelow_, collapseBelow_});
    return menu;
}

/// What belongs to the kind of the node.
void CTransponderTableListPaneWnd::addItems(QMenu& menu, const NodeView& node)
{
    if (node.kind().item == NodeItem::None)
        return;
    LogPrint(g_log, log_level::kInformation, "pBase=%#zx",
             reinterpret_cast<std::size_t>(node.address()));
    if (node.kind().menu == ContextMenu::None)
        return;
    LogPrint(g_log, log_level::kInformation, "context menu");
    for (const ContextItem& item : contextItems(node.kind().menu)) {
        QAction* const action = menu.addAction(toQString(item.text));
        const bool setsTuner = item.tuner != TunerType{};
        action->setEnabled(setsTuner && document_.driverState().isTuner(item.tuner) &&
                           !document_.driverCall().isBusy());
        if (setsTuner)
            connect(action, &QAction::triggered, this,
                    [this, type = item.tuner] { setTuner(type); });
    }
}

void CTransponderTableListPaneWnd::setTuner(TunerType type)
{
    const auto node =
        contextNode_ ? std::optional(NodeView(model_->tree(), *contextNode_)) : std::nullopt;
    tessaview::setTuner(document_, type, node, this);
}

void CTransponderTableListPaneWnd::copyPath() const
{
    if (const auto node = selectedNode())
        QGuiApplication::clipboard()->setText(toQString(pathText(*node)));
}

void CTransponderTableListPaneWnd::expandBelow()
{
    if (const auto top = selectedNode()) {
        const WaitCursor waiting;
        scheduleDelayedItemsLayout(); // once, when all are open
        forEachParent(*top, [this](const NodeView& node) { expand(model_->indexOf(node)); });
    }
}

void CTransponderTableListPaneWnd::collapseBelow()
{
    if (const auto top = selectedNode()) {
        const WaitCursor waiting;
        // The branch itself is the first, so that what is below is out of sight by then.
        forEachParent(*top, [this](const NodeView& node) { collapse(model_->indexOf(node)); });
    }
}

} // namespace tessaview
