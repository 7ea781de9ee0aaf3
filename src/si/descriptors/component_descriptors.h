#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <cstdint>

// What the components of a service are: pictures, sound, teletext, subtitles and the lines of the
// vertical blanking interval (EN 300 468, 6.2).

namespace lib13818 {

/// Each entry is kept raw; throws code 2 unless the entries end with the descriptor.
class DescriptorVBIData final : public DescriptorOf<0x45, "VBI_data_descriptor"> {
public:
    explicit DescriptorVBIData(DescriptorReader in);

    struct VBIDataService : Record {
        explicit VBIDataService(BitReader& in);

        int data_service_id;
        int data_service_descriptor_length;
        Bytes data_service_descriptor;
    };
    Records<VBIDataService> entries;
};

struct TeletextInfo : Record {
    explicit TeletextInfo(BitReader& in);

    Code ISO_639_language_code;
    int teletext_type;
    int teletext_magazine_number; ///< 0 is magazine 8
    int teletext_page_number;     ///< two hexadecimal digits
};

class DescriptorVBITeletext final : public DescriptorOf<0x46, "VBI_teletext_descriptor"> {
public:
    explicit DescriptorVBITeletext(DescriptorReader in);
    void clear() override { entries = {}; }

    Records<TeletextInfo> entries;
};

class DescriptorComponent final : public DescriptorOf<0x50, "component_descriptor"> {
public:
    explicit DescriptorComponent(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int stream_content;
    int component_type;
    int component_tag;
    Code ISO_639_language_code;
    StrippedText text;
};

class DescriptorStreamIdentifier final : public DescriptorOf<0x52, "stream_identifier_descriptor"> {
public:
    explicit DescriptorStreamIdentifier(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int component_tag;
};

class DescriptorTeletext final : public DescriptorOf<0x56, "teletext_descriptor"> {
public:
    explicit DescriptorTeletext(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    Records<TeletextInfo> entries;
};

struct SubtitlingInfo : Record {
    explicit SubtitlingInfo(BitReader& in);

    Code ISO_639_language_code;
    int subtitling_type;
    int composition_page_id;
    int ancillary_page_id;
};

class DescriptorSubtitling final : public DescriptorOf<0x59, "subtitling_descriptor"> {
public:
    explicit DescriptorSubtitling(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    Records<SubtitlingInfo> entries;
};

class DescriptorAC3 final : public DescriptorOf<0x6A, "AC3_descriptor"> {
public:
    explicit DescriptorAC3(DescriptorReader in) noexcept;

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
    Bytes additional_info_byte;
};

class DescriptorAncillaryData final : public DescriptorOf<0x6B, "ancillary_data_descriptor"> {
public:
    explicit DescriptorAncillaryData(DescriptorReader in) noexcept;

    int ancillary_data_identifier; ///< one bit for each kind of data
};

class DescriptorAdaptationFieldData final
    : public DescriptorOf<0x70, "adaptation_field_descriptor"> {
public:
    explicit DescriptorAdaptationFieldData(DescriptorReader in) noexcept;

    int adaptation_field_data_identifier; ///< one bit for each kind of data
};

} // namespace lib13818
