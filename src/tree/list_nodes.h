#pragma once

#include "si/descriptors/descriptor.h"
#include "tree/fields/field_list.h"
#include "tree/tree.h"

#include <concepts>
#include <cstdint>
#include <span>
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
    const auto& owner = node.data<Owner>();
    (Lists::addTo(owner, node.address(), children), ...);
}

/// The bytes of the nodes that stand for a `T` which is neither descriptor nor record.
template <class T>
constexpr std::span<const std::uint8_t> (*kBytesOf)(const NodeView& node) = nullptr;

template <std::derived_from<lib13818::Descriptor> T>
constexpr std::span<const std::uint8_t> (*kBytesOf<T>)(const NodeView& node) =
    [](const NodeView& node) {
        const auto* const tag = static_cast<const std::uint8_t*>(node.address());
        return std::span<const std::uint8_t>(tag, 2U + tag[1]);
    };

template <std::derived_from<lib13818::Record> T>
constexpr std::span<const std::uint8_t> (*kBytesOf<T>)(const NodeView& node) =
    [](const NodeView& node) {
        lib13818::BitReader in = node.recordReader();
        const std::uint8_t* const first = in.place();
        lib13818::readRecord<T>(in);
        return std::span<const std::uint8_t>(first, in.place());
    };

template <class T>
constexpr NodePart kPartOf = std::derived_from<T, lib13818::Descriptor> ? NodePart::Descriptor
                             : std::derived_from<T, lib13818::Record>   ? NodePart::Record
                                                                        : NodePart::Entry;

/// The node kinds of one list. `Source` tells whose the list is (`Owner`), what is in it (`Entry`)
/// and where (`entries(owner)`); `Fields` is the field list of an entry; `Nested` are the lists
/// under each entry.
template <class Source, lib13818::Literal Singular, const auto& Fields, class... Nested>
struct ListNodes {
    using Owner = typename Source::Owner;
    using Entry = typename Source::Entry;
    static_assert(std::is_same_v<Entry, typename std::remove_cvref_t<decltype(Fields)>::Object>,
                  "give every list of the tree the field list of its entries");

    /// `address` is that of the owner's node.
    static void addTo(const Owner& owner, const void* address, Children& children)
    {
        const auto& entries = Source::entries(owner);
        auto entry = entries.begin();
        if (entry == entries.end())
            return;
        const void* const first = placeOf(entry);
        if (++entry == entries.end())
            children.add(kOnly, first);
        else
            children.add(kList, address);
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
        const auto& owner = node.data<Owner>();
        const auto& entries = Source::entries(owner);
        for (auto entry = entries.begin(); entry != entries.end(); ++entry)
            children.add(kEntry, placeOf(entry));
    }

    /// Where an entry is: its first byte, or the object itself.
    template <class Iterator>
    static const void* placeOf(const Iterator& entry)
    {
        if constexpr (requires { entry.place(); })
            return entry.place();
        else
            return &*entry;
    }

    static constexpr NodeKind kindOfEntry(std::string (*label)(const NodeView&))
    {
        return {.name = Singular.text,
                .label = label,
                .expand = sizeof...(Nested) == 0 ? nullptr : expandLists<Entry, Nested...>,
                .fill = fillFrom<Fields>,
                .menu = kMenuOf<Entry>,
                .bytes = kBytesOf<Entry>,
                .part = kPartOf<Entry>};
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
