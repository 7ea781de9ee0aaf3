#pragma once

#include "tree/fields/field.h"
#include "tree/tree.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace tessaview {

/// The rows of one kind of object, in the order in which they are shown.
template <class T, std::size_t N>
struct FieldList {
    using Object = T;

    std::array<Field<T>, N> fields;
};

/// The field list of a `T`, given as braces of a name, a format and a member each.
template <class T, std::size_t N>
consteval FieldList<T, N> fieldList(const Field<T> (&fields)[N])
{
    return {std::to_array(fields)};
}

/// The field list of a descriptor of which nothing but its header is shown.
template <class T>
consteval auto headerFields(const char* tagFormat = "%04x")
{
    return fieldList<T>({{"DESCRIPTOR_TAG", tagFormat, &T::descriptor_tag},
                         {"DESCRIPTOR_LENGTH", "%d", &T::descriptor_length}});
}

/// The filler of the nodes that stand for the object of a list.
template <const auto& List>
void fillFrom(const NodeView& node, std::vector<ValueRow>& rows)
{
    const auto& object = node.data<typename std::remove_cvref_t<decltype(List)>::Object>();
    for (const auto& field : List.fields)
        field.fill(node, object, rows.emplace_back());
}

} // namespace tessaview
