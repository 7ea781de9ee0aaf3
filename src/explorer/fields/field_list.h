#pragma once

#include "explorer/fields/field.h"
#include "explorer/tree.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace tessaview {

/// The rows of one kind of object: a string id and, for each name of that string, a field.
template <class T, std::size_t N>
struct FieldList {
    using Object = T;

    int id;
    std::array<std::string_view, N> names;
    std::array<Field<T>, N> fields;
};

/// The field list of a `T`. `names` is cut at every comma; an empty piece gives no name. Another
/// number of fields than of names does not compile.
template <class T, std::size_t N>
consteval FieldList<T, N> fieldList(int id, std::string_view names, const Field<T> (&fields)[N])
{
    FieldList<T, N> list{.id = id, .names = {}, .fields = std::to_array(fields)};
    std::size_t count = 0;
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(','));
        names.remove_prefix(name.size() < names.size() ? name.size() + 1 : name.size());
        if (name.empty())
            continue;
        if (count == N)
            throw "a name has no field";
        list.names[count++] = name;
    }
    if (count != N)
        throw "a field has no name";
    return list;
}

/// The filler of the nodes that stand for the object of a list.
template <const auto& List>
void fillFrom(const NodeView& node, std::vector<ValueRow>& rows)
{
    const auto& object = node.data<typename std::remove_cvref_t<decltype(List)>::Object>();
    for (std::size_t i = 0; i < List.names.size(); ++i) {
        ValueRow& row = rows.emplace_back();
        row.name = List.names[i];
        List.fields[i].fill(node, object, row);
    }
}

} // namespace tessaview
