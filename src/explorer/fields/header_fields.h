#pragma once

#include "explorer/fields/field_list.h"

namespace tessaview {

/// The field list of a descriptor of which nothing but its header is shown.
template <class T>
consteval auto headerFields(int id, const char* tagFormat = "%04x")
{
    return fieldList<T>(id, "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH",
                        {{tagFormat, &T::descriptor_tag}, {"%d", &T::descriptor_length}});
}

} // namespace tessaview
