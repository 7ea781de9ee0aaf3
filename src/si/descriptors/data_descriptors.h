#pragma once

#include "si/descriptors/descriptor.h"

#include <cstdint>
#include <string>
#include <vector>

// Data and applications that are broadcast (EN 300 468, 6.2; TS 102 812 for 0x6F). What would reach
// past the descriptor is cut there, numbers keep 0.

namespace lib13818 {

class DescriptorDataBroadcast final : public DescriptorOf<0x64, "data_broadcast_descriptor"> {
public:
    explicit DescriptorDataBroadcast(DescriptorReader in);

    int data_broadcast_id;
    int component_tag;
    int selector_length; ///< as coded, in bytes
    std::vector<uint8_t> selector_byte;
    Code ISO_639_language_code;
    int text_length; ///< as coded, in bytes
    std::string text;
};

class DescriptorDataBroadcastId final : public DescriptorOf<0x66, "data_broadcast_id_descriptor"> {
public:
    explicit DescriptorDataBroadcastId(DescriptorReader in);

    int data_broadcast_id;
    std::vector<uint8_t> id_selector_byte;
};

/// Throws code -1 without a text unless the entries end with the descriptor.
class DescriptorApplicationSignalling final
    : public DescriptorOf<0x6F, "application_signalling_descriptor"> {
public:
    explicit DescriptorApplicationSignalling(DescriptorReader in);

    struct Info {
        explicit Info(BitReader& in);
        const char* applicationTypeText() const;

        int application_type;
        int AIT_version_number;
    };
    std::vector<Info> entries;
};

} // namespace lib13818
