#pragma once

#include "si/bit_reader.h"
#include "si/text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>

namespace lib13818 {

/// An ISO 639 language or ISO 3166 country code: its three bytes as broadcast and a zero.
using Code = std::array<char, 4>;

/// The payload of one descriptor, reachable from a pointer to its tag byte. The whole descriptor,
/// 2 + its length in bytes, must be readable.
class DescriptorReader : public BitReader {
public:
    // Implicit: a descriptor class is built straight from the pointer to its tag byte.
    DescriptorReader(const uint8_t* descriptor) noexcept // NOLINT(google-explicit-constructor)
        : BitReader({descriptor + 2, descriptor[1]})
        , tag(descriptor[0])
        , length(descriptor[1])
    {
    }

    /// Throws "descriptor length mismatch" unless the payload after `headBytes` is a whole number
    /// of records.
    void requireRecordsOf(int recordBytes, int headBytes = 0) const;

    const int tag;
    const int length;
};

/// What is left of a loop behind its first descriptor, which it holds as a whole.
inline Bytes behindFirst(Bytes loop)
{
    return loop.subspan(2U + loop[1]);
}

/// Hands `take` the descriptors of a loop, each by a pointer to its tag byte, up to the first that
/// does not fit into it. Gives the number of bytes from there on, 0 when the loop ends with its
/// last descriptor.
template <class Take>
std::size_t forEachDescriptor(Bytes loop, Take take)
{
    for (; loop.size() >= 2 && loop.size() >= 2U + loop[1]; loop = behindFirst(loop))
        take(loop.data());
    return loop.size();
}

/// Three bytes of a language or country code; those past the end are 0.
Code readCode(BitReader& in) noexcept;
/// A text of `length` bytes, cut at the end, without its character table selector.
StrippedText readStripped(BitReader& in, int length) noexcept;
/// The same behind a length byte.
StrippedText readCountedStripped(BitReader& in) noexcept;

/// What every descriptor has. Descriptors are values, copied and never deleted through this base,
/// whose texts, byte runs and lists are views into the bytes that they were built from. A class
/// whose constructor is noexcept takes whatever bytes come; only the others can refuse some.
class Descriptor {
public:
    int descriptor_tag;
    int descriptor_length; ///< payload bytes after the two header bytes, 0 to 255

    /// The header line and then the class's own lines. Leaves the stream in hexadecimal with the
    /// fill '0' unless the class says otherwise.
    virtual void dump(std::ostream& out) const;
    virtual const char* name() const = 0;
    /// The lines of the class's own fields.
    virtual void dumpBody(std::ostream& out) const = 0;
    /// Empties the variable part of the classes that have one to empty.
    virtual void clear() = 0;

protected:
    explicit Descriptor(const DescriptorReader& in) noexcept
        : descriptor_tag(in.tag)
        , descriptor_length(in.length)
    {
    }
    Descriptor(const Descriptor&) = default;
    Descriptor(Descriptor&&) = default;
    Descriptor& operator=(const Descriptor&) = default;
    Descriptor& operator=(Descriptor&&) = default;
    ~Descriptor() = default;
};

/// A text usable as a template argument.
template <std::size_t N>
struct Literal {
    constexpr Literal(const char (&chars)[N]) // NOLINT(google-explicit-constructor)
    {
        for (std::size_t i = 0; i < N; ++i)
            text[i] = chars[i];
    }
    char text[N];
};

/// The base of a descriptor class with its tag and its name text. Unless the class says
/// otherwise it has nothing to dump and nothing to clear.
template <int Tag, Literal Name>
class DescriptorOf : public Descriptor {
public:
    static constexpr int kTag = Tag;

    const char* name() const override { return Name.text; }
    void dumpBody(std::ostream& /*out*/) const override {}
    void clear() override {}

protected:
    using Descriptor::Descriptor;
    DescriptorOf(const DescriptorOf&) = default;
    DescriptorOf(DescriptorOf&&) noexcept = default;
    DescriptorOf& operator=(const DescriptorOf&) = default;
    DescriptorOf& operator=(DescriptorOf&&) noexcept = default;
    ~DescriptorOf() = default;
};

/// The catch-all for a tag that has no class of its own.
class DescriptorUserPrivate final : public Descriptor {
public:
    explicit DescriptorUserPrivate(DescriptorReader in) noexcept : Descriptor(in), data(in.rest())
    {
    }

    const char* name() const override;
    void dumpBody(std::ostream& out) const override;
    void clear() override { data = {}; }

    Bytes data; ///< the payload, unchanged
};

} // namespace lib13818
