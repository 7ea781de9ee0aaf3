#include "si/descriptors/component_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

DescriptorVBIData::VBIDataService::VBIDataService(BitReader& in)
    : data_service_id(in.u8())
    , data_service_descriptor_length(in.u8())
    , data_service_descriptor(in.take(data_service_descriptor_length))
{
}

DescriptorVBIData::DescriptorVBIData(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<VBIDataService>(in, kRecordsMissTheEnd))
{
}

TeletextInfo::TeletextInfo(BitReader& in)
    : ISO_639_language_code(readCode(in))
    , teletext_type(in.bits(5))
    , teletext_magazine_number(in.bits(3))
    , teletext_page_number(in.u8())
{
}

DescriptorVBITeletext::DescriptorVBITeletext(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<TeletextInfo>(in, 5))
{
}

DescriptorComponent::DescriptorComponent(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , stream_content(in.skip(4).bits(4))
    , component_type(in.u8())
    , component_tag(in.u8())
    , ISO_639_language_code(readCode(in))
    , text(readStripped(in, in.bytesLeft()))
{
}

void DescriptorComponent::dumpBody(std::ostream& out) const
{
    line(out, "stream_content: ", stream_content);
    line(out, "component_type: ", component_type);
    line(out, "component_tag: ", component_tag);
    line(out, "language_code: ", ISO_639_language_code.data());
    line(out, "text: ", text.text);
}

DescriptorStreamIdentifier::DescriptorStreamIdentifier(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , component_tag(in.u8())
{
}

void DescriptorStreamIdentifier::dumpBody(std::ostream& out) const
{
    line(out, "component_tag: ", component_tag);
}

DescriptorTeletext::DescriptorTeletext(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<TeletextInfo>(in, 5))
{
}

void DescriptorTeletext::dumpBody(std::ostream& out) const
{
    for (const TeletextInfo& entry : entries) {
        line(out, "language_code ", entry.ISO_639_language_code.data());
        line(out, "teletext_type ", entry.teletext_type);
        line(out, "teletext_magazine_number ", entry.teletext_magazine_number);
        line(out, "teletext_page_number ", entry.teletext_page_number);
    }
}

SubtitlingInfo::SubtitlingInfo(BitReader& in)
    : ISO_639_language_code(readCode(in))
    , subtitling_type(in.u8())
    , composition_page_id(in.u16())
    , ancillary_page_id(in.u16())
{
}

DescriptorSubtitling::DescriptorSubtitling(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<SubtitlingInfo>(in, 8, {kBadContent, "subtitling_descriptor"}))
{
}

void DescriptorSubtitling::dumpBody(std::ostream& out) const
{
    for (const SubtitlingInfo& entry : entries) {
        line(out,
             "DescriptorSubtitling::ISO_639_language_code: ", entry.ISO_639_language_code.data());
        line(out, "DescriptorSubtitling::subtitling_type: ", entry.subtitling_type);
        line(out, "DescriptorSubtitling::composition_page_id: ", entry.composition_page_id);
        line(out, "DescriptorSubtitling::antcillary_page_id: ", entry.ancillary_page_id);
    }
}

DescriptorAC3::DescriptorAC3(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , component_type_flag(in.bits(1))
    , bsid_flag(in.bits(1))
    , mainid_flag(in.bits(1))
    , asvc_flag(in.bits(1))
    , component_type(in.skip(4).bits(8 * component_type_flag))
    , bsid(in.bits(8 * bsid_flag))
    , mainid(in.bits(8 * mainid_flag))
    , asvc(in.bits(8 * asvc_flag))
    , additional_info_byte(in.rest())
{
}

DescriptorAncillaryData::DescriptorAncillaryData(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , ancillary_data_identifier(in.u8())
{
}

DescriptorAdaptationFieldData::DescriptorAdaptationFieldData(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , adaptation_field_data_identifier(in.u8())
{
}

} // namespace lib13818
