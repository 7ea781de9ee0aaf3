#include "ui/find_bar.h"

#include "ui/command_icons.h"
#include "ui/text.h"
#include "ui/tree_pane.h"
#include "ui/value_pane.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStringMatcher>
#include <QStyle>
#include <QToolButton>

namespace tessaview {

namespace {

/// How long the window may wait for a slice of the search, and the nodes between two looks at
/// the clock.
constexpr int kSliceMilliseconds = 10;
constexpr std::size_t kNodesAtOnce = 64;

QToolButton* button(const QIcon& icon, const QString& name)
{
    auto* const made = new QToolButton;
    made->setAutoRaise(true);
    made->setIcon(icon);
    made->setToolTip(name);
    made->setAccessibleName(name);
    return made;
}

} // namespace

FindBar::FindBar(CTransponderTableListPaneWnd& treePane, CTransponderValuePaneWnd& valuePane,
                 QWidget* parent)
    : QWidget(parent)
    , treePane_(treePane)
    , valuePane_(valuePane)
    , field_(new QLineEdit)
    , message_(new QLabel)
{
    field_->setPlaceholderText(QStringLiteral("Find in labels, names and values"));
    field_->setAccessibleName(field_->placeholderText());
    field_->setClearButtonEnabled(true);
    message_->setTextFormat(Qt::PlainText);
    auto* const previous =
        button(commandIcon(Command::FindPrevious), QStringLiteral("Find previous (Shift+F3)"));
    auto* const next = button(commandIcon(Command::FindNext), QStringLiteral("Find next (F3)"));
    auto* const closing = button(style()->standardIcon(QStyle::SP_TitleBarCloseButton),
                                 QStringLiteral("Close (Esc)"));

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(field_, 2);
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addWidget(message_, 1);
    layout->addWidget(closing);

    connect(field_, &QLineEdit::textEdited, this,
            [this] { start(TreeSearch::Direction::Forward, true); });
    connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
    connect(next, &QToolButton::clicked, this, &FindBar::findNext);
    connect(closing, &QToolButton::clicked, this, &FindBar::close);
    connect(&treePane.treeModel(), &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        cancel();
        forget();
    });
    connect(&slice_, &QTimer::timeout, this, &FindBar::goOn);
    hide();
}

void FindBar::open()
{
    setVisible(true);
    field_->setFocus();
    field_->selectAll();
}

void FindBar::close()
{
    cancel();
    forget();
    treePane_.setFocus(); // before the bar goes, which would pass the keys on to its neighbour
    hide();
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers() & Qt::ShiftModifier)
            findPrevious();
        else
            findNext();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

QString FindBar::message() const
{
    return message_->text();
}

void FindBar::say(const QString& message)
{
    message_->setText(message);
}

/// The row or node that is selected.
std::optional<TreePlace> FindBar::selectedPlace() const
{
    const auto node = treePane_.selectedNode();
    if (!node)
        return std::nullopt;
    const auto row =
        node->kind().item == NodeItem::Filled ? valuePane_.selectedRow() : std::nullopt;
    return TreePlace{.node = node->id(), .text = row ? *row + 1 : TreePlace::kLabel};
}

void FindBar::start(TreeSearch::Direction direction, bool takesStart)
{
    cancel();
    const Tree& tree = treePane_.treeModel().tree();
    const QString text = field_->text();
    if (text.isEmpty()) {
        open();
        return;
    }
    if (tree.empty()) {
        say(QStringLiteral("Nothing has been read yet"));
        return;
    }
    auto match = [matcher = QStringMatcher(text, Qt::CaseInsensitive)](std::string_view candidate) {
        return matcher.indexIn(toQString(candidate)) >= 0;
    };
    const auto selected = selectedPlace();
    if (!origin_ || selected != hit_) { // the user has gone elsewhere meanwhile
        forget();
        origin_ = Origin{selected};
    }
    search_.emplace(tree, match, selected.value_or(TreePlace()), direction, takesStart);
    slice_.start(0);
    goOn();
}

void FindBar::cancel()
{
    slice_.stop();
    search_.reset();
    say({});
}

/// Searches for the time of one slice.
void FindBar::goOn()
{
    QElapsedTimer clock;
    clock.start();
    auto result = TreeSearch::Result::Running;
    while (result == TreeSearch::Result::Running && clock.elapsed() < kSliceMilliseconds)
        result = search_->step(kNodesAtOnce);
    if (result == TreeSearch::Result::Running) {
        say(QStringLiteral("Searching, %1 %").arg(int(100 * search_->progress())));
        return;
    }
    const TreeSearch ended = *search_;
    cancel();
    if (result == TreeSearch::Result::Nothing) {
        goBack();
        say(QStringLiteral("Not found"));
        return;
    }
    reveal(ended.hit());
    if (ended.hasWrapped())
        say(QStringLiteral("Went on from the other end"));
}

void FindBar::reveal(const TreePlace& place)
{
    const NodeView node(treePane_.treeModel().tree(), place.node);
    for (NodeView above = node; !above.isRoot();) {
        above = above.parent();
        if (!treePane_.isExpanded(treePane_.treeModel().indexOf(above)))
            opened_.push_back(above.id());
    }
    show(place);
    hit_ = place;
}

void FindBar::show(const TreePlace& place)
{
    treePane_.select(NodeView(treePane_.treeModel().tree(), place.node));
    if (place.text != TreePlace::kLabel)
        valuePane_.selectRow(place.text - 1);
}

void FindBar::goBack()
{
    const auto& model = treePane_.treeModel();
    for (const NodeId id : opened_)
        treePane_.collapse(model.indexOf(NodeView(model.tree(), id)));
    if (selectedPlace() == origin_->place)
        return;
    treePane_.deselect();
    if (origin_->place)
        show(*origin_->place);
}

/// From here on, the user is where the next search begins.
void FindBar::forget()
{
    origin_.reset();
    opened_.clear();
}

} // namespace tessaview
