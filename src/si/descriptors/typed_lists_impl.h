#pragma once

// The members of TypedLists that touch every class, for the one file per set that instantiates it.

#include "si/descriptors/typed_lists.h"
#include "si/error.h"

namespace lib13818 {

/// Builds a descriptor of a class to see whether it is refused; null for a class that takes all.
template <class Entry>
constexpr void (*kTryOf)(const uint8_t*) =
    [](const uint8_t* descriptor) { Entry{DescriptorReader(descriptor)}; };
template <class Entry>
requires std::is_nothrow_constructible_v<Entry, DescriptorReader>
constexpr void (*kTryOf<Entry>)(const uint8_t*) = nullptr;

template <class Classes>
std::size_t TypedLists<Classes>::fill(Bytes loop)
{
    static constexpr auto kTry = [] {
        std::array<void (*)(const uint8_t*), kCount> tries{};
        forEachType(
            [&]<class List>() { tries[kIndex<List>] = kTryOf<typename EntryOf<List>::Type>; });
        return tries;
    }();
    first_ = loop.data();
    size_ = 0;
    leftOut_ = kNone;
    return forEachDescriptor(loop, [this](const uint8_t* descriptor) {
        try {
            if (const auto attempt = kTry[kListOfTag[descriptor[0]]])
                attempt(descriptor);
        } catch (error& refused) {
            if (!refused.place)
                refused.place = descriptor;
            throw;
        }
        size_ += 2U + descriptor[1];
    });
}

template <class Classes>
void TypedLists<Classes>::dump(std::ostream& out) const
{
    forEachType([&]<class List>() {
        for (const auto& descriptor : all<List>())
            descriptor.dump(out);
    });
}

} // namespace lib13818
