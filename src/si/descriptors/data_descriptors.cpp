#include "si/descriptors/data_descriptors.h"

namespace lib13818 {

DescriptorDataBroadcast::DescriptorDataBroadcast(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , data_broadcast_id(in.u16())
    , component_tag(in.u8())
    , selector_length(in.u8())
    , selector_byte(in.take(selector_length))
    , ISO_639_language_code(readCode(in))
    , text_length(in.u8())
    , text(in.text(text_length))
{
}

DescriptorDataBroadcastId::DescriptorDataBroadcastId(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , data_broadcast_id(in.u16())
    , id_selector_byte(in.rest())
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

} // namespace lib13818
