#include "si/descriptors/mpeg_descriptors.h"

#include "si/dump.h"
#include "si/texts/value_texts.h"

#include <iomanip>

namespace lib13818 {

DescriptorVideoStream::DescriptorVideoStream(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , multiple_frame_rate_flag(in.bits(1))
    , frame_rate_code(in.bits(4))
    , MPEG_1_only_flag(in.flag())
    , constrained_parameter_flag(in.flag())
    , still_picture_flag(in.flag())
{
    if (MPEG_1_only_flag)
        return;
    profile_and_level_indication = in.u8();
    chroma_format = in.bits(2);
    frame_rate_extension_flag = in.flag();
    reserved = in.bits(5);
}

void DescriptorVideoStream::dumpBody(std::ostream& out) const
{
    line(out, "TO IMPLEMENT!!!", "");
}

DescriptorAudioStream::DescriptorAudioStream(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , free_format_flag(in.bits(1))
    , ID(in.bits(1))
    , layer(in.bits(2))
    , variable_rate_audio_indicator(in.bits(1))
{
}

void DescriptorAudioStream::dumpBody(std::ostream& out) const
{
    line(out, "free_format_flag: ", free_format_flag);
    line(out, "ID: ", ID);
    line(out, "layer: ", layer);
    line(out, "variable_rate_audio_indicator: ", variable_rate_audio_indicator);
}

DescriptorHierarchy::DescriptorHierarchy(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , hierarchy_type(in.skip(4).bits(4))
    , hierarchy_layer_index(in.skip(2).bits(6))
    , hierarchy_embedded_layer_index(in.skip(2).bits(6))
    , hierarchy_channel(in.skip(2).bits(6))
{
}

DescriptorRegistration::DescriptorRegistration(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , format_identifier(in.u32())
    , additional_identification_info(in.rest())
{
}

DescriptorDataStreamAlignment::DescriptorDataStreamAlignment(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , alignment_type(in.u8())
{
}

DescriptorTargetBackgroundGrid::DescriptorTargetBackgroundGrid(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , horizontal_size(in.bits(14))
    , vertical_size(in.bits(14))
    , aspect_ratio_information(in.bits(4))
{
}

DescriptorVideoWindow::DescriptorVideoWindow(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , horizontal_offset(in.bits(14))
    , vertical_offset(in.bits(14))
    , window_priority(in.bits(4))
{
}

DescriptorCA::DescriptorCA(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , CA_system_id(in.u16())
    , CA_PID(in.skip(3).bits(13))
    , private_data_byte(in.rest())
{
}

void DescriptorCA::dumpBody(std::ostream& out) const
{
    out << "sys_id: " << std::hex << std::setw(4) << CA_system_id;
    line(out, " ", caProviderText(CA_system_id));
    line(out, "pid: ", CA_PID, 4);
    if (private_data_byte.empty())
        return;
    line(out, "private data:", "");
    hexDump(out, private_data_byte);
}

DescriptorISO639Language::Info::Info(BitReader& in)
    : ISO_639_language_code(readCode(in))
    , audio_type(in.u8())
{
}

DescriptorISO639Language::DescriptorISO639Language(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<Info>(in, 4))
{
}

void DescriptorISO639Language::dumpBody(std::ostream& out) const
{
    for (const Info& entry : entries) {
        line(out, "ISO_639_language_code: ", entry.ISO_639_language_code.data());
        line(out, "audio_type: ", entry.audio_type);
    }
}

DescriptorSystemClock::DescriptorSystemClock(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , external_clock_reference_indicator(in.bits(1))
    , clock_accuracy_integer(in.skip(1).bits(6))
    , clock_accuracy_exponent(in.bits(3))
{
}

DescriptorMultiplexBufferUtilization::DescriptorMultiplexBufferUtilization(
    DescriptorReader in) noexcept
    : DescriptorOf(in)
    , bound_valid_flag(in.bits(1))
    , LTW_offset_lower_bound(in.bits(15))
    , LTW_offset_upper_bound(in.skip(1).bits(15))
{
}

DescriptorCopyright::DescriptorCopyright(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , copyright_identifier(in.u32())
    , additional_copyright_info(in.rest())
{
}

void DescriptorCopyright::dumpBody(std::ostream& out) const
{
    line(out, "copyright_identifier:", copyright_identifier);
    out << "additional_copyright_info: ";
    for (const int byte : additional_copyright_info)
        out << ' ' << byte;
    line(out, "", "");
}

DescriptorMaximumBitrate::DescriptorMaximumBitrate(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , maximum_bitrate(in.skip(2).bits(22))
{
}

DescriptorPrivateDataIndicator::DescriptorPrivateDataIndicator(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , private_data_indicator(in.u32())
{
}

void DescriptorPrivateDataIndicator::dumpBody(std::ostream& out) const
{
    line(out, "private_data_indicator: ", private_data_indicator);
}

DescriptorSmoothingBuffer::DescriptorSmoothingBuffer(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , sb_leak_rate(in.skip(2).bits(22))
    , sb_size(in.skip(2).bits(22))
{
}

DescriptorSTD::DescriptorSTD(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , leak_valid_flag(in.skip(7).bits(1))
{
}

void DescriptorSTD::dumpBody(std::ostream& out) const
{
    line(out, "leak_valid_flag: ", leak_valid_flag);
}

DescriptorIBP::DescriptorIBP(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , closed_gop_flag(in.bits(1))
    , identical_gop_flag(in.bits(1))
    , max_gop_length(in.bits(14))
{
}

} // namespace lib13818
