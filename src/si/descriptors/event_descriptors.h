#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"
#include "si/time.h"

// What a programme is, when it is repeated and for whom it is made (EN 300 468, 6.2).

namespace lib13818 {

class DescriptorNVODReference final : public DescriptorOf<0x4B, "NVOD_reference_descriptor"> {
public:
    explicit DescriptorNVODReference(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct service : Record {
        explicit service(BitReader& in);

        int transport_stream_id;
        int original_network_id;
        int service_id;
    };
    Records<service> entries;
};

class DescriptorTimeShiftedService final
    : public DescriptorOf<0x4C, "time_shifted_service_descriptor"> {
public:
    explicit DescriptorTimeShiftedService(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int reference_service_id;
};

class DescriptorShortEvent final : public DescriptorOf<0x4D, "short_event_descriptor"> {
public:
    explicit DescriptorShortEvent(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    Code ISO_639_language_code;
    StrippedText event_name;
    StrippedText text;
};

struct ExtendedEventItem : Record {
    explicit ExtendedEventItem(BitReader& in);

    StrippedText item_description;
    StrippedText item;
};

/// Throws "data length mismatch" when an item reaches past length_of_items or the descriptor.
class DescriptorExtendedEvent final : public DescriptorOf<0x4E, "extended_event_descriptor"> {
public:
    explicit DescriptorExtendedEvent(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { items = {}; }

    int descriptor_number;
    int last_descriptor_number;
    Code ISO_639_language_code;
    Records<ExtendedEventItem> items;
    StrippedText text;
};

class DescriptorTimeShiftedEvent final
    : public DescriptorOf<0x4F, "time_shifted_event_descriptor"> {
public:
    explicit DescriptorTimeShiftedEvent(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    int reference_service_id;
    int reference_event_id;
};

class DescriptorContent final : public DescriptorOf<0x54, "content_descriptor"> {
public:
    explicit DescriptorContent(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct Info : Record {
        explicit Info(BitReader& in);

        int content_nibble_level1;
        int content_nibble_level2;
        int user_nibble1;
        int user_nibble2;
    };
    Records<Info> entries;
};

class DescriptorParentalRating final : public DescriptorOf<0x55, "parental_rating_descriptor"> {
public:
    explicit DescriptorParentalRating(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct RatingInfo : Record {
        explicit RatingInfo(BitReader& in);

        Code country_code;
        int rating; ///< 1 to 15: the minimum age less 3
    };
    Records<RatingInfo> entries;
};

struct LocalTimeOffsetInfo : Record {
    explicit LocalTimeOffsetInfo(BitReader& in);

    Code country_code;
    int country_region_id;
    int local_time_offset_polarity; ///< 1 = behind UTC
    HourMinute local_time_offset;
    DateTime time_of_change;
    HourMinute next_time_offset;
};

class DescriptorLocalTimeOffset final : public DescriptorOf<0x58, "local_time_offset_descriptor"> {
public:
    explicit DescriptorLocalTimeOffset(DescriptorReader in);
    /// Leaves the stream in decimal once there is an entry.
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    Records<LocalTimeOffsetInfo> entries;
};

class DescriptorPDC final : public DescriptorOf<0x69, "PDC_descriptor"> {
public:
    explicit DescriptorPDC(DescriptorReader in) noexcept;

    int programme_identification_label; ///< day, month, hour, minute in 5, 4, 5 and 6 bits
};

} // namespace lib13818
