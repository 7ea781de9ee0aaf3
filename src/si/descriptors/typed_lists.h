#pragma once

#include "si/descriptors/descriptor_store.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <type_traits>
#include <utility>

namespace lib13818 {

/// The two lists of raw descriptors: tags from 0x80 up, and classless tags below.
struct HighUserPrivate {
    using Entry = DescriptorUserPrivate;
};
struct LowUserPrivate {
    using Entry = DescriptorUserPrivate;
};

/// A descriptor class names its own list; a raw list names its entry type.
template <class List>
struct EntryOf {
    using Type = List;
};
template <class List>
requires requires
{
    typename List::Entry;
}
struct EntryOf<List> {
    using Type = typename List::Entry;
};

/// The descriptors of one class, in the order in which they stood in the stream.
template <class Lists, class List>
class ListRange {
public:
    using Entry = typename EntryOf<List>::Type;

    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        Iterator() = default;
        explicit Iterator(DescriptorStore::Cursor cursor) : cursor_(cursor) { findOwn(); }
        reference operator*() const { return *static_cast<const Entry*>(cursor_.object()); }
        pointer operator->() const { return &**this; }
        Iterator& operator++()
        {
            cursor_.next(Lists::kSizes[cursor_.list()]);
            findOwn();
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b)
        {
            return a.cursor_ == b.cursor_;
        }

    private:
        void findOwn()
        {
            while (!cursor_.atEnd() && cursor_.list() != Lists::template kIndex<List>)
                cursor_.next(Lists::kSizes[cursor_.list()]);
        }
        DescriptorStore::Cursor cursor_;
    };

    explicit ListRange(const DescriptorStore& store)
        : store_(store.has(Lists::template kIndex<List>) ? &store : nullptr)
    {
    }

    Iterator begin() const
    {
        return store_ ? Iterator(DescriptorStore::Cursor(*store_)) : Iterator();
    }
    Iterator end() const { return Iterator(); }
    bool empty() const { return !store_; }
    /// Counts: linear in the descriptors of the whole set.
    std::size_t size() const { return static_cast<std::size_t>(std::distance(begin(), end())); }
    const Entry& front() const { return *begin(); }

private:
    const DescriptorStore* store_;
};

/// The lists of a set in their order.
template <class... Lists>
struct ClassList {
    static constexpr std::size_t kCount = sizeof...(Lists);

    /// Calls `visit.template operator()<List>()` for every list.
    template <class Visitor>
    static constexpr void forEach(Visitor visit)
    {
        (visit.template operator()<Lists>(), ...);
    }
};

/// One list per descriptor class, filled by tag: the content of one descriptor loop. `Classes` is
/// a ClassList: the classes, each with its own tag, and the two raw lists.
template <class Classes>
class TypedLists {
public:
    TypedLists() = default;
    TypedLists(const TypedLists& other);
    TypedLists(TypedLists&& other) noexcept = default;
    TypedLists& operator=(TypedLists other) noexcept
    {
        std::swap(store_, other.store_);
        return *this;
    }
    ~TypedLists();

    static constexpr std::size_t kCount = Classes::kCount;

    /// The list of a class; empty when the loop had none.
    template <class List>
    ListRange<TypedLists, List> all() const
    {
        return ListRange<TypedLists, List>(store_);
    }

    bool empty() const { return store_.empty(); }

    /// Parses one descriptor and appends it to the list of its class. Throws what the class
    /// throws, and appends nothing then.
    void add(const unsigned char* descriptor);

    /// Adds the descriptors of a loop up to the first that does not fit into it. Gives the number
    /// of bytes from there on, 0 when the loop ends with its last descriptor.
    std::size_t addLoop(std::span<const uint8_t> loop);

    /// Empties the list of a class.
    template <class List>
    void clear()
    {
        remove(kIndex<List>);
    }

    /// Calls `visit.template operator()<List>()` for every list, in the declared order.
    template <class Visitor>
    static constexpr void forEachType(Visitor visit)
    {
        Classes::forEach(visit);
    }

    /// Dumps every descriptor, list by list in the declared order.
    void dump(std::ostream& out) const;

    /// The place of a list in the declared order; a list that the set lacks does not compile.
    template <class List>
    static constexpr std::size_t kIndex = [] {
        std::size_t index = 0;
        std::size_t found = kCount;
        forEachType([&]<class Other>() {
            if (std::is_same_v<List, Other>)
                found = index;
            ++index;
        });
        if (found == kCount)
            throw "not a list of this set";
        return found;
    }();

    /// Bytes that an object of each list takes in a store.
    static constexpr std::array<uint16_t, kCount> kSizes = [] {
        std::array<uint16_t, kCount> sizes{};
        std::size_t index = 0;
        forEachType([&]<class List>() {
            using Entry = typename EntryOf<List>::Type;
            static_assert(alignof(Entry) <= DescriptorStore::kAlignment);
            constexpr std::size_t unit = DescriptorStore::kAlignment;
            sizes[index++] = static_cast<uint16_t>((sizeof(Entry) + unit - 1) / unit * unit);
        });
        return sizes;
    }();

    /// Which list a tag goes to; two classes with one tag do not compile.
    static constexpr std::array<uint8_t, 256> kListOfTag = [] {
        std::array<uint8_t, 256> lists{};
        for (std::size_t tag = 0; tag < lists.size(); ++tag)
            lists[tag] =
                static_cast<uint8_t>(tag < 0x80 ? kIndex<LowUserPrivate> : kIndex<HighUserPrivate>);
        forEachType([&]<class List>() {
            if constexpr (requires { List::kTag; }) {
                if (lists[List::kTag] != kIndex<LowUserPrivate>)
                    throw "two descriptor classes claim the same tag";
                lists[List::kTag] = kIndex<List>;
            }
        });
        return lists;
    }();

private:
    static_assert(kCount <= DescriptorStore::kMaxLists);

    static const std::array<EntryType, kCount> kTypes;

    void remove(std::size_t list);

    DescriptorStore store_;
};

} // namespace lib13818
