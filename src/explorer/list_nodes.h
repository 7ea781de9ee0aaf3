#pragma once

#include "explorer/fields/field_list.h"
#include "explorer/tree.h"
#include "si/descriptors/descriptor.h"

#include <cstdint>
#include <string>
#include <type_traits>

// The one rule of lists in the tree: no entry, no node; one entry, a node with the singular label;
// more, numbered nodes under a node with the plural label.

namespace tessaview {

/// The menu of the nodes that stand for a `T`.
template <class T>
constexpr ContextMenu kMenuOf = ContextMenu::None;

/// Adds what is below a node: each of the lists.
template <class Owner, class... Lists>
void expandLists(const NodeView& node, Children& children)
{
    (Lists::addTo(node.data<Owner>(), children), ...);
}

/// The node kinds of one list. `Source` tells whose the list is (`Owner`), what is in it (`Entry`)
/// and where (`entries(owner)`); `Fields` is the field list of an entry; `Nested` are the lists
/// under each entry.
template <class Source, lib13818::Literal Singular, const auto& Fields, class... Nested>
struct ListNodes {
    using Owner = typename Source::Owner;
    using Entry = typename Source::Entry;
    static_assert(std::is_same_v<Entry, typename std::remove_cvref_t<decltype(Fields)>::Object>,
                  "give every list of the tree the field list of its entries");

    static void addTo(const Owner& owner, Children& children)
    {
        const auto& entries = Source::entries(owner);
        if (entries.empty())
            return;
        auto second = entries.begin();
        if (++second == entries.end())
            children.add(kOnly, &*entries.begin());
        else
            children.add(kList, &owner);
    }

private:
    static std::string onlyLabel(const NodeView& /*node*/) { return Singular.text; }
    static std::string entryLabel(const NodeView& node) { return std::to_string(node.row()); }
    static std::string listLabel(const NodeView& /*node*/)
    {
        return std::string(Singular.text) + "S";
    }

    static void expandList(const NodeView& node, Children& children)
    {
        for (const auto& entry : Source::entries(node.data<Owner>()))
            children.add(kEntry, &entry);
    }

    static constexpr NodeKind kindOfEntry(std::string (*label)(const NodeView&))
    {
        return {.name = Singular.text,
                .label = label,
                .expand = expandLists<Entry, Nested...>,
                .fill = fillFrom<Fields>,
                .menu = kMenuOf<Entry>};
    }
    static constexpr NodeKind kOnly = kindOfEntry(onlyLabel);
    static constexpr NodeKind kEntry = kindOfEntry(entryLabel);
    static constexpr NodeKind kList{
        .name = "list", .label = listLabel, .expand = expandList, .item = NodeItem::None};
};

/// A list that is a member of its owner.
template <auto Member>
struct MemberList;

template <class OwnerClass, class List, List OwnerClass::*Member>
struct MemberList<Member> {
    using Owner = OwnerClass;
    using Entry = typename List::value_type;
    static const List& entries(const Owner& owner) { return owner.*Member; }
};

/// The nodes of a member list, with the label of a single one.
template <auto Member, lib13818::Literal Singular, const auto& Fields, class... Nested>
using EntryList = ListNodes<MemberList<Member>, Singular, Fields, Nested...>;

} // namespace tessaview
