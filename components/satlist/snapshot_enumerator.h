#pragma once

#include "components/satlist/new_object.h"
#include "satlist/satellite_list.h"

#include <atomic>
#include <utility>
#include <vector>

namespace tessaview {

/// Gives out the items of a list as it was when the enumerator was made, each as an `Object` of
/// its own.
template <class Interface, class Item, class Object, class Value>
class SnapshotEnumerator final
    : public Implements<SnapshotEnumerator<Interface, Item, Object, Value>, Interface> {
public:
    explicit SnapshotEnumerator(std::vector<Value> values) : values_(std::move(values)) {}

    Status Next(std::uint32_t count, Item** item, std::uint32_t* fetched) noexcept override
    {
        if (fetched)
            *fetched = 0;
        if (!item)
            return status::kNullPointer;
        *item = nullptr;
        if (count != 1)
            return status::kInvalidArgument;
        return guarded([&] {
            const std::size_t index = next_.fetch_add(1);
            if (index >= values_.size())
                return status::kFalse;
            *item = newObject<Object>(values_[index]);
            if (fetched)
                *fetched = 1;
            return status::kOk;
        });
    }

private:
    const std::vector<Value> values_;
    std::atomic<std::size_t> next_ = 0;
};

} // namespace tessaview
