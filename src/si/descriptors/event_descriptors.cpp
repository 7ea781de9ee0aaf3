#include "si/descriptors/event_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

namespace {

Records<ExtendedEventItem> readItems(BitReader& in)
{
    BitReader loop(in.take(in.u8()));
    return readRecordsToEnd<ExtendedEventItem>(loop, {.message = "data length mismatch"});
}

} // namespace

DescriptorNVODReference::service::service(BitReader& in)
    : transport_stream_id(in.u16())
    , original_network_id(in.u16())
    , service_id(in.u16())
{
}

DescriptorNVODReference::DescriptorNVODReference(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<service>(in, 6, {kBadContent, "NVOD_reference_descriptor"}))
{
}

void DescriptorNVODReference::dumpBody(std::ostream& out) const
{
    for (const service& entry : entries) {
        line(out,
             "DescriptorNVODReference::service::transport_stream_id: ", entry.transport_stream_id);
        line(out,
             "DescriptorNVODReference::service::original_network_id: ", entry.original_network_id);
        line(out, "DescriptorNVODReference::service::service_id: ", entry.service_id);
    }
}

DescriptorTimeShiftedService::DescriptorTimeShiftedService(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , reference_service_id(in.u16())
{
}

void DescriptorTimeShiftedService::dumpBody(std::ostream& out) const
{
    line(out, "reference_service_id: ", reference_service_id);
}

DescriptorShortEvent::DescriptorShortEvent(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , ISO_639_language_code(readCode(in))
    , event_name(readCountedStripped(in))
    , text(readCountedStripped(in))
{
}

void DescriptorShortEvent::dumpBody(std::ostream& out) const
{
    line(out, "language_code: ", ISO_639_language_code.data());
    line(out, "event_name: ", event_name.text);
    line(out, "text: ", text.text);
}

ExtendedEventItem::ExtendedEventItem(BitReader& in)
    : item_description(readCountedStripped(in))
    , item(readCountedStripped(in))
{
}

DescriptorExtendedEvent::DescriptorExtendedEvent(DescriptorReader in)
    : DescriptorOf(in)
    , descriptor_number(in.bits(4))
    , last_descriptor_number(in.bits(4))
    , ISO_639_language_code(readCode(in))
    , items(readItems(in))
    , text(readCountedStripped(in))
{
}

void DescriptorExtendedEvent::dumpBody(std::ostream& out) const
{
    line(out, "descriptor_number: ", descriptor_number);
    line(out, "last_descriptor_number: ", last_descriptor_number);
    line(out, "language_code: ", ISO_639_language_code.data());
    line(out, "text: ", text.text);
    for (const ExtendedEventItem& entry : items) {
        line(out, "description: ", entry.item_description.text);
        line(out, "item: ", entry.item.text);
    }
}

DescriptorTimeShiftedEvent::DescriptorTimeShiftedEvent(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , reference_service_id(in.u16())
    , reference_event_id(in.u16())
{
}

void DescriptorTimeShiftedEvent::dumpBody(std::ostream& out) const
{
    line(out, "reference_service_id: ", reference_service_id);
    line(out, "reference_event_id: ", reference_event_id);
}

DescriptorContent::Info::Info(BitReader& in)
    : content_nibble_level1(in.bits(4))
    , content_nibble_level2(in.bits(4))
    , user_nibble1(in.bits(4))
    , user_nibble2(in.bits(4))
{
}

DescriptorContent::DescriptorContent(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<Info>(in, 2))
{
}

void DescriptorContent::dumpBody(std::ostream& out) const
{
    for (const Info& entry : entries) {
        line(out, "content_nibble_level1: ", entry.content_nibble_level1);
        line(out, "content_nibble_level2: ", entry.content_nibble_level2);
        line(out, "user_nibble1: ", entry.user_nibble1);
        line(out, "user_nibble2: ", entry.user_nibble2);
    }
}

DescriptorParentalRating::RatingInfo::RatingInfo(BitReader& in)
    : country_code(readCode(in))
    , rating(in.u8())
{
}

DescriptorParentalRating::DescriptorParentalRating(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<RatingInfo>(in, 4, {kBadContent, "parental_rating_descriptor"}))
{
}

void DescriptorParentalRating::dumpBody(std::ostream& out) const
{
    for (const RatingInfo& entry : entries) {
        line(out,
             "DescriptorParentalRating::RatingInfo::country_code: ", entry.country_code.data());
        line(out, "DescriptorParentalRating::RatingInfo::rating: ", entry.rating);
    }
}

LocalTimeOffsetInfo::LocalTimeOffsetInfo(BitReader& in)
    : country_code(readCode(in))
    , country_region_id(in.bits(6))
    , local_time_offset_polarity(in.skip(1).bits(1))
    , local_time_offset(in)
    , time_of_change(in)
    , next_time_offset(in)
{
}

DescriptorLocalTimeOffset::DescriptorLocalTimeOffset(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<LocalTimeOffsetInfo>(in, 13, {.message = kStartEndMismatch}))
{
}

void DescriptorLocalTimeOffset::dumpBody(std::ostream& out) const
{
    for (const LocalTimeOffsetInfo& entry : entries) {
        line(out, "country_code: ", entry.country_code.data());
        line(out, "country_region_id: ", entry.country_region_id);
        line(out, "local_time_offset_polarity: ", entry.local_time_offset_polarity);
        line(out, "local_time_offset: ", entry.local_time_offset);
        line(out, "time_of_change: ", entry.time_of_change);
        line(out, "next_time_offset: ", entry.next_time_offset);
    }
}

DescriptorPDC::DescriptorPDC(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , programme_identification_label(in.skip(4).bits(20))
{
}

} // namespace lib13818
