#pragma once

#include "si/descriptors/descriptor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <type_traits>

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

/// The descriptors of one class, in the order in which they stand in the loop, each built when one
/// comes to it.
template <class Lists, class List>
class ListRange {
public:
    using Entry = typename EntryOf<List>::Type;

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using iterator_concept = std::forward_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = Entry;

        Iterator() = default;
        explicit Iterator(Bytes loop) : left_(loop) { findOwn(); }
        Entry operator*() const { return Entry(left_.data()); }
        Iterator& operator++()
        {
            left_ = behindFirst(left_);
            findOwn();
            return *this;
        }
        Iterator operator++(int)
        {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        /// The tag byte of the descriptor.
        const uint8_t* place() const { return left_.data(); }
        friend bool operator==(const Iterator& a, const Iterator& b)
        {
            return a.left_.size() == b.left_.size();
        }

    private:
        void findOwn()
        {
            while (!left_.empty() && Lists::kListOfTag[left_[0]] != Lists::template kIndex<List>)
                left_ = behindFirst(left_);
        }
        Bytes left_;
    };

    explicit ListRange(Bytes loop) : loop_(loop) {}

    Iterator begin() const { return Iterator(loop_); }
    Iterator end() const { return Iterator(); }
    bool empty() const { return begin() == end(); }
    /// Counts: linear in the descriptors of the whole set.
    std::size_t size() const { return static_cast<std::size_t>(std::distance(begin(), end())); }
    /// The first, if there is one.
    std::optional<Entry> first() const
    {
        return empty() ? std::nullopt : std::optional<Entry>(*begin());
    }

private:
    Bytes loop_;
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

/// One list per descriptor class, sorted by tag: the content of one descriptor loop, as a view of
/// its bytes, which must outlive the set and its copies. `Classes` is a ClassList: the classes,
/// each with its own tag, and the two raw lists.
template <class Classes>
class TypedLists {
public:
    static constexpr std::size_t kCount = Classes::kCount;

    /// Takes the descriptors of a loop, in place of those it had, up to the first that does not fit
    /// into it. Gives the number of bytes from there on, 0 when the loop ends with its last
    /// descriptor. Each is built once: what the class of one throws is thrown, and the set then
    /// holds those before it.
    std::size_t fill(Bytes loop);

    /// The bytes of the descriptors.
    Bytes bytes() const { return {first_, size_}; }

    /// The bytes of an entry of a table that ends with the loop of this set: `headBytes` before it
    /// and `loopBytes` of it, which may end with some that are no descriptor.
    Bytes entryBytes(std::size_t headBytes, int loopBytes) const
    {
        return {first_ - headBytes, headBytes + static_cast<std::size_t>(loopBytes)};
    }

    /// The list of a class; empty when the loop had none.
    template <class List>
    ListRange<TypedLists, List> all() const
    {
        return ListRange<TypedLists, List>(leftOut_ == kIndex<List> ? Bytes() : bytes());
    }

    /// Calls `visit(descriptor)` with the bytes of each, in the order of the loop.
    template <class Visitor>
    void forEach(Visitor visit) const
    {
        forEachDescriptor(bytes(), [&](const uint8_t* descriptor) {
            if (kListOfTag[descriptor[0]] != leftOut_)
                visit(Bytes(descriptor, 2U + descriptor[1]));
        });
    }

    bool empty() const
    {
        bool isEmpty = true;
        forEach([&](Bytes /*descriptor*/) { isEmpty = false; });
        return isEmpty;
    }

    /// Shows the list of a class as empty until the set is filled again; only one at a time.
    template <class List>
    void leaveOut()
    {
        leftOut_ = kIndex<List>;
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
    static constexpr uint8_t kNone = 0xFF;
    static_assert(kCount < kNone);

    const uint8_t* first_ = nullptr;
    uint32_t size_ = 0;
    uint8_t leftOut_ = kNone;
};

} // namespace lib13818
