#include "si/descriptors/further_descriptors.h"

#include "si/descriptors/record_list.h"
#include "si/dump.h"

namespace lib13818 {

DescriptorTelephone::DescriptorTelephone(DescriptorReader in)
    : DescriptorOf(in)
    , foreign_availability(in.skip(2).bits(1))
    , connection_type(in.bits(5))
    , country_prefix_length(in.skip(1).bits(2))
    , international_area_code_length(in.bits(3))
    , operator_code_length(in.bits(2))
    , national_area_code_length(in.skip(1).bits(3))
    , core_number_length(in.bits(4))
    , country_prefix_char(in.text(country_prefix_length))
    , international_area_code_char(in.text(international_area_code_length))
    , operator_code_char(in.text(operator_code_length))
    , national_area_code_char(in.text(national_area_code_length))
    , core_number_char(in.text(core_number_length))
{
}

void DescriptorTelephone::dumpBody(std::ostream& out) const
{
    line(out, "foriegn_availability: ", foreign_availability);
    line(out, "connection_type: ", connection_type);
    line(out, "country_prefix_length: ", country_prefix_length);
    line(out, "international_area_code_length: ", international_area_code_length);
    line(out, "operator_code_length: ", operator_code_length);
    line(out, "national_area_code_length: ", national_area_code_length);
    line(out, "core_number_length: ", core_number_length);
    line(out, "country_prefix_char: ", country_prefix_char);
    line(out, "international_area_code_char: ", international_area_code_char);
    line(out, "operator_code_char: ", operator_code_char);
    line(out, "national_area_code_char: ", national_area_code_char);
    line(out, "core_number_char: ", core_number_char);
}

void DescriptorTelephone::clear()
{
    country_prefix_char.clear();
    international_area_code_char.clear();
    operator_code_char.clear();
    national_area_code_char.clear();
    core_number_char.clear();
}

DescriptorShortSmoothingBuffer::DescriptorShortSmoothingBuffer(DescriptorReader in)
    : DescriptorOf(in)
    , sb_size(in.bits(2))
    , sb_leak_rate(in.bits(6))
    , DVB_reserved(in.rest())
{
}

void DescriptorShortSmoothingBuffer::dumpBody(std::ostream& out) const
{
    line(out, "sb_size: ", sb_size);
    line(out, "sb_leak_rate: ", sb_leak_rate);
    if (DVB_reserved.empty())
        return;
    line(out, "DVB_reserved:", "");
    hexDump(out, DVB_reserved);
}

DescriptorDataBroadcast::DescriptorDataBroadcast(DescriptorReader in)
    : DescriptorOf(in)
    , data_broadcast_id(in.u16())
    , component_tag(in.u8())
    , selector_length(in.u8())
    , selector_byte(readBytes(in, selector_length))
    , ISO_639_language_code(readCode(in))
    , text_length(in.u8())
    , text(in.text(text_length))
{
}

DescriptorDataBroadcastId::DescriptorDataBroadcastId(DescriptorReader in)
    : DescriptorOf(in)
    , data_broadcast_id(in.u16())
    , id_selector_byte(in.rest())
{
}

DescriptorTransportStream::DescriptorTransportStream(DescriptorReader in)
    : DescriptorOf(in)
    , byte(in.rest())
{
}

DescriptorDSNG::DescriptorDSNG(DescriptorReader in) : DescriptorOf(in), byte(in.rest()) {}

DescriptorPDC::DescriptorPDC(DescriptorReader in)
    : DescriptorOf(in)
    , programme_identification_label(in.skip(4).bits(20))
{
}

DescriptorAC3::DescriptorAC3(DescriptorReader in)
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

DescriptorAncillaryData::DescriptorAncillaryData(DescriptorReader in)
    : DescriptorOf(in)
    , ancillary_data_identifier(in.u8())
{
}

DescriptorAnnouncementSupport::Info::Info(BitReader& in)
    : announcement_type(in.bits(4))
    , reference_type(in.skip(1).bits(3))
{
    if (reference_type < 1 || reference_type > 3)
        return;
    original_network_id = in.u16();
    transport_stream_id = in.u16();
    service_id = in.u16();
    component_tag = in.u8();
}

DescriptorAnnouncementSupport::DescriptorAnnouncementSupport(DescriptorReader in)
    : DescriptorOf(in)
    , announcement_support_indicator(in.u16())
    , entries(readRecordsToEnd<Info>(in, kRecordsMissTheEnd))
{
}

DescriptorApplicationSignalling::Info::Info(BitReader& in)
    : application_type(in.u16())
    , AIT_version_number(in.skip(3).bits(5))
{
}

const char* DescriptorApplicationSignalling::Info::applicationTypeText() const
{
    switch (application_type) {
    case 0:
        return "reserved_future_use";
    case 1:
        return "DVB-J application";
    case 2:
        return "DVB-HTML application";
    default:
        return "subject to registration with DVB";
    }
}

DescriptorApplicationSignalling::DescriptorApplicationSignalling(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<Info>(in, 3, {.message = ""}))
{
}

DescriptorAdaptationFieldData::DescriptorAdaptationFieldData(DescriptorReader in)
    : DescriptorOf(in)
    , adaptation_field_data_identifier(in.u8())
{
}

} // namespace lib13818
