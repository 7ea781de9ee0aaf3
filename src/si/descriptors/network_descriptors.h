#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <cstdint>
#include <string_view>

// Descriptors that name and link networks and bouquets and list their services (EN 300 468, 6.2).
// Texts are the broadcast's own bytes, character table selector included.

namespace lib13818 {

class DescriptorNetworkName final : public DescriptorOf<0x40, "network_name_descriptor"> {
public:
    explicit DescriptorNetworkName(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { network_name = {}; }

    std::string_view network_name;
};

class DescriptorServiceList final : public DescriptorOf<0x41, "service_list_descriptor"> {
public:
    explicit DescriptorServiceList(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;

    struct Info : Record {
        explicit Info(BitReader& in);

        int service_id;
        int service_type;
    };
    Records<Info> services;
};

class DescriptorStuffing final : public DescriptorOf<0x42, "stuffing_descriptor"> {
public:
    explicit DescriptorStuffing(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { stuffing_byte = {}; }

    Bytes stuffing_byte;
};

class DescriptorBouquetName final : public DescriptorOf<0x47, "bouquet_name_descriptor"> {
public:
    explicit DescriptorBouquetName(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { bouquet_name = {}; }

    std::string_view bouquet_name;
};

class DescriptorLinkage final : public DescriptorOf<0x4A, "linkage_descriptor"> {
public:
    explicit DescriptorLinkage(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { private_data_byte = {}; }

    int transport_stream_id;
    int original_network_id;
    int service_id;
    int linkage_type;
    Bytes private_data_byte; ///< whatever the linkage type
};

class DescriptorPrivateDataSpecifier final
    : public DescriptorOf<0x5F, "private_data_specifier_descriptor"> {
public:
    explicit DescriptorPrivateDataSpecifier(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    uint32_t private_data_specifier;
};

} // namespace lib13818
