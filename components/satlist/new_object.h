#pragma once

#include <utility>

namespace tessaview {

/// A new object with its first reference. Throws, so operations call it within `guarded`.
template <class Object, class... Arguments>
Object* newObject(Arguments&&... arguments)
{
    return new Object(std::forward<Arguments>(arguments)...);
}

} // namespace tessaview
