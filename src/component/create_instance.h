#pragma once

#include "component/unknown.h"

namespace tessaview {

/// What the entry point of a library answers whose one class is `Class`, by the class identifier
/// `own`: a new object through the interface that is asked for.
template <class Class>
Status createInstanceOf(const Guid& own, const Guid* clsid, const Guid* iid, void** object)
{
    return guarded([&]() -> Status {
        if (!clsid || !iid || !object)
            return status::kNullPointer;
        *object = nullptr;
        if (!(*clsid == own))
            return status::kClassNotRegistered;
        const auto created = ComPtr<Class>::adopt(new Class);
        return created->QueryInterface(*iid, object);
    });
}

} // namespace tessaview
