#include "ui/tree_model.h"

#include "ui/text.h"

namespace tessaview {

namespace {

// The toolkit keeps opened rows in a hash table by the sum of row and identifier, which clusters
// when the identifiers are consecutive numbers: a million nodes would take minutes to open. So they
// are scattered, by a multiplication that has an inverse.
constexpr std::uint32_t kScatter = 0x9E3779B1;

constexpr std::uint32_t inverseOf(std::uint32_t odd)
{
    std::uint32_t inverse = odd; // right in 3 bits; each step doubles them
    for (int step = 0; step < 4; ++step)
        inverse *= 2 - odd * inverse;
    return inverse;
}

constexpr std::uint32_t kGather = inverseOf(kScatter);
static_assert(kScatter * kGather == 1);

} // namespace

/// Around a change of all nodes, on every way out of it.
class TreeModel::Reset {
public:
    explicit Reset(TreeModel& model) : model_(model) { model_.beginResetModel(); }
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;
    ~Reset() { model_.endResetModel(); }

private:
    TreeModel& model_;
};

void TreeModel::rebuild(const NetworkMap& model, const void* valuePane)
{
    const Reset reset(*this);
    tree_.rebuild(model, valuePane);
}

void TreeModel::clear()
{
    const Reset reset(*this);
    tree_.clear();
}

void TreeModel::setCharsetPolicy(const CharsetPolicy& policy)
{
    emit layoutAboutToBeChanged();
    tree_.setCharsetPolicy(policy);
    emit layoutChanged();
}

NodeView TreeModel::node(const QModelIndex& index) const
{
    return {tree_, static_cast<std::uint32_t>(index.internalId()) * kGather};
}

QModelIndex TreeModel::indexOf(const NodeView& node) const
{
    const std::uint32_t scattered = node.id() * kScatter;
    return createIndex(static_cast<int>(node.row()), 0, quintptr{scattered});
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return indexOf(parent.isValid() ? node(parent).child(static_cast<std::size_t>(row))
                                    : tree_.root());
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    if (!index.isValid() || node(index).isRoot())
        return {};
    return indexOf(node(index).parent());
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return tree_.empty() ? 0 : 1;
    return parent.column() == 0 ? static_cast<int>(node(parent).childCount()) : 0;
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return toQString(node(index).label());
}

} // namespace tessaview
