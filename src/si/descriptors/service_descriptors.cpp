#include "si/descriptors/service_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

DescriptorService::DescriptorService(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , service_type(in.u8())
    , provider_name(in.countedText())
    , service_name(in.countedText())
{
}

void DescriptorService::dumpBody(std::ostream& out) const
{
    line(out, "service_type ", service_type);
    line(out, "provider_name ", provider_name);
    line(out, "service_name ", service_name);
}

DescriptorCountryAvailability::DescriptorCountryAvailability(DescriptorReader in)
    : DescriptorOf(in)
    , country_availability_flag(in.bits(1))
{
    if ((in.length - 1) % 3 != 0)
        throw error(kBadContent, "country_availability_descriptor");
    in.skip(7);
    country_code = Records<std::string_view>(in.rest());
}

void DescriptorCountryAvailability::dumpBody(std::ostream& out) const
{
    line(out, "country_availability_flag: ", country_availability_flag);
    for (const std::string_view code : country_code)
        line(out, "country_code: ", code);
}

DescriptorCAIdentifier::DescriptorCAIdentifier(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , CA_system_id(in.take(in.length / 2 * 2))
{
}

void DescriptorCAIdentifier::dumpBody(std::ostream& out) const
{
    for (const int id : CA_system_id)
        line(out, "CA_system_id: ", id);
}

DescriptorTelephone::DescriptorTelephone(DescriptorReader in) noexcept
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
    country_prefix_char = {};
    international_area_code_char = {};
    operator_code_char = {};
    national_area_code_char = {};
    core_number_char = {};
}

DescriptorServiceMove::DescriptorServiceMove(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , new_original_network_id(in.u16())
    , new_transport_stream_id(in.u16())
    , new_service_id(in.u16())
{
}

void DescriptorServiceMove::dumpBody(std::ostream& out) const
{
    line(out, "new_original_network_id: ", new_original_network_id);
    line(out, "new_transport_stream_id: ", new_transport_stream_id);
    line(out, "new_service_id: ", new_service_id);
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

} // namespace lib13818
