#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <cstdint>
#include <string_view>

// Data and applications that are broadcast (EN 300 468, 6.2; TS 102 812 for 0x6F). What would reach
// past the descriptor is cut there, numbers keep 0.

namespace lib13818 {

class DescriptorDataBroadcast final : public DescriptorOf<0x64, "data_broadcast_descriptor"> {
public:
    explicit DescriptorDataBroadcast(DescriptorReader in) noexcept;

    int data_broadcast_id;
    int component_tag;
    int selector_length; ///< as coded, in bytes
    Bytes selector_byte;
    Code ISO_639_language_code;
    int text_length; ///< as coded, in bytes
    std::string_view text;
};

class DescriptorDataBroadcastId final : public DescriptorOf<0x66, "data_broadcast_id_descriptor"> {
public:
    explicit DescriptorDataBroadcastId(DescriptorReader in) noexcept;

    int data_broadcast_id;
    Bytes id_selector_byte;
};

/// Throws code -1 without a text unless the entries end with the descriptor.
class DescriptorApplicationSignalling final
    : public DescriptorOf<0x6F, "application_signalling_descriptor"> {
public:
    explicit DescriptorApplicationSignalling(DescriptorReader in);

    struct Info : Record {
        explicit Info(BitReader& in);
        const char* applicationTypeText() const;

        int application_type;
        int AIT_version_number;
    };
    Records<Info> entries;
};

} // namespace lib13818
