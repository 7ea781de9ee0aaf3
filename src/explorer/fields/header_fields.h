#pragma once

#include "explorer/fields/field_list.h"

namespace tessaview {

/// The field list of a descriptor of which nothing but its header is shown.
template <class T>
consteval auto headerFields(const char* tagFormat = "%04x")
{
    return fieldList<T>({{"DESCRIPTOR_TAG", tagFormat, &T::descriptor_tag},
                         {"DESCRIPTOR_LENGTH", "%d", &T::descriptor_length}});
}

} // namespace tessaview
