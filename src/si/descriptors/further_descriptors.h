#pragma once

#include "si/descriptors/descriptor.h"

#include <cstdint>
#include <string>
#include <vector>

// Descriptors that stand alone (EN 300 468, 6.2 and Annex D; TS 102 812 for 0x6F). What would
// reach past the descriptor is cut there, numbers keep 0. Texts are the broadcast's own bytes,
// character table selector included.

namespace lib13818 {

class DescriptorTelephone final : public DescriptorOf<0x57, "telephone_descriptor"> {
public:
    explicit DescriptorTelephone(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override;

    int foreign_availability;
    int connection_type;
    int country_prefix_length;
    int international_area_code_length;
    int operator_code_length;
    int national_area_code_length;
    int core_number_length;
    std::string country_prefix_char;
    std::string international_area_code_char;
    std::string operator_code_char;
    std::string national_area_code_char;
    std::string core_number_char;
};

class DescriptorShortSmoothingBuffer final
    : public DescriptorOf<0x61, "short_smoothing_buffer_descriptor"> {
public:
    explicit DescriptorShortSmoothingBuffer(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { DVB_reserved.clear(); }

    int sb_size;      ///< coded
    int sb_leak_rate; ///< coded
    std::vector<uint8_t> DVB_reserved;
};

class DescriptorPartialTransportStream final
    : public DescriptorOf<0x63, "partial_transport_descriptor"> {
public:
    explicit DescriptorPartialTransportStream(DescriptorReader in) : DescriptorOf(in) {}
};

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

class DescriptorTransportStream final : public DescriptorOf<0x67, "transport_stream_descriptor"> {
public:
    explicit DescriptorTransportStream(DescriptorReader in);

    std::vector<uint8_t> byte;
};

class DescriptorDSNG final : public DescriptorOf<0x68, "DSNG_descriptor"> {
public:
    explicit DescriptorDSNG(DescriptorReader in);

    std::vector<uint8_t> byte;
};

class DescriptorPDC final : public DescriptorOf<0x69, "PDC_descriptor"> {
public:
    explicit DescriptorPDC(DescriptorReader in);

    int programme_identification_label; ///< day, month, hour, minute in 5, 4, 5 and 6 bits
};

class DescriptorAC3 final : public DescriptorOf<0x6A, "AC3_descriptor"> {
public:
    explicit DescriptorAC3(DescriptorReader in);

    static const char* componentTypeText() { return "to be implemented"; }

    int component_type_flag;
    int bsid_flag;
    int mainid_flag;
    int asvc_flag;
    // Each is 0 without its flag.
    int component_type;
    int bsid;
    int mainid;
    int asvc;
    std::vector<uint8_t> additional_info_byte;
};

class DescriptorAncillaryData final : public DescriptorOf<0x6B, "ancillary_data_descriptor"> {
public:
    explicit DescriptorAncillaryData(DescriptorReader in);

    int ancillary_data_identifier; ///< one bit for each kind of data
};

/// Throws code 2 unless the entries end with the descriptor.
class DescriptorAnnouncementSupport final
    : public DescriptorOf<0x6E, "announcement_support_descriptor"> {
public:
    explicit DescriptorAnnouncementSupport(DescriptorReader in);

    struct Info {
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
    std::vector<Info> entries;
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

class DescriptorAdaptationFieldData final
    : public DescriptorOf<0x70, "adaptation_field_descriptor"> {
public:
    explicit DescriptorAdaptationFieldData(DescriptorReader in);

    int adaptation_field_data_identifier; ///< one bit for each kind of data
};

class DescriptorServiceIdentifier final
    : public DescriptorOf<0x71, "service_identifier_descriptor"> {
public:
    explicit DescriptorServiceIdentifier(DescriptorReader in) : DescriptorOf(in) {}
};

} // namespace lib13818
