#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <string_view>

// What a service is called, where it may be received and what it announces (EN 300 468, 6.2). Texts
// are the broadcast's own bytes, character table selector included.

namespace lib13818 {

class DescriptorService final : public DescriptorOf<0x48, "service_descriptor"> {
public:
    explicit DescriptorService(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int service_type;
    std::string_view provider_name;
    std::string_view service_name;
};

class DescriptorCountryAvailability final
    : public DescriptorOf<0x49, "country_availability_descriptor"> {
public:
    explicit DescriptorCountryAvailability(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;

    int country_availability_flag;
    Records<std::string_view> country_code; ///< three bytes each
};

class DescriptorCAIdentifier final : public DescriptorOf<0x53, "CA_system_id_descriptor"> {
public:
    explicit DescriptorCAIdentifier(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { CA_system_id = {}; }

    Records<int> CA_system_id;
};

class DescriptorTelephone final : public DescriptorOf<0x57, "telephone_descriptor"> {
public:
    explicit DescriptorTelephone(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override;

    int foreign_availability;
    int connection_type;
    int country_prefix_length;
    int international_area_code_length;
    int operator_code_length;
    int national_area_code_length;
    int core_number_length;
    std::string_view country_prefix_char;
    std::string_view international_area_code_char;
    std::string_view operator_code_char;
    std::string_view national_area_code_char;
    std::string_view core_number_char;
};

class DescriptorServiceMove final : public DescriptorOf<0x60, "service_move_descriptor"> {
public:
    explicit DescriptorServiceMove(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int new_original_network_id;
    int new_transport_stream_id;
    int new_service_id;
};

/// Throws code 2 unless the entries end with the descriptor.
class DescriptorAnnouncementSupport final
    : public DescriptorOf<0x6E, "announcement_support_descriptor"> {
public:
    explicit DescriptorAnnouncementSupport(DescriptorReader in);

    struct Info : Record {
        explicit Info(BitReader& in);

        int announcement_type;
        int reference_type;
        // Broadcast with the reference types 1 to 3, otherwise 0.
        int original_network_id = 0;
        int transport_stream_id = 0;
        int service_id = 0;
        int component_tag = 0;
    };

    int announcement_support_indicator; ///< one bit for each kind of announcement
    Records<Info> entries;
};

class DescriptorServiceIdentifier final
    : public DescriptorOf<0x71, "service_identifier_descriptor"> {
public:
    explicit DescriptorServiceIdentifier(DescriptorReader in) noexcept : DescriptorOf(in) {}
};

} // namespace lib13818
