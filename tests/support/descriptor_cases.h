#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/error.h"
#include "tests/support/bytes.h"

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace test {

/// What a descriptor loop writes into a fresh stream.
template <class Set = lib13818::DescriptorSet>
std::string dumpOf(std::string_view loop)
{
    const auto bytes = hex(loop);
    Set set;
    EXPECT_EQ(set.addLoop({exactly(bytes).get(), bytes.size()}), 0U) << loop;
    std::ostringstream out;
    set.dump(out);
    return out.str();
}

/// A descriptor's own lines in hexadecimal, after its `clear`.
template <class Descriptor>
std::string clearedDump(std::string_view text)
{
    auto descriptor = decode<Descriptor>(text);
    descriptor.clear();
    std::ostringstream out;
    descriptor.dumpBody(out << std::hex);
    return out.str();
}

/// A descriptor that its class does not take.
struct Refused {
    const char* bytes;
    int code;
    const char* message;
};

template <class Set = lib13818::DescriptorSet>
void expectRefused(const std::vector<Refused>& cases)
{
    for (const Refused& refused : cases) {
        Set set;
        try {
            set.add(exactly(hex(refused.bytes)).get());
            ADD_FAILURE() << "taken: " << refused.bytes;
        } catch (const lib13818::error& failure) {
            EXPECT_EQ(failure.code, refused.code) << refused.bytes;
            EXPECT_STREQ(failure.what(), refused.message) << refused.bytes;
            EXPECT_TRUE(set.empty()) << refused.bytes;
        }
    }
}

} // namespace test
