#include "si/pmt.h"

#include "si/dump.h"

#include <ios>
#include <type_traits>

namespace lib13818 {

namespace {

/// Puts the format flags and the width of a stream back.
class SavedFormat {
public:
    explicit SavedFormat(std::ostream& out) : out_(out), flags_(out.flags()), width_(out.width()) {}
    SavedFormat(const SavedFormat&) = delete;
    SavedFormat& operator=(const SavedFormat&) = delete;
    ~SavedFormat()
    {
        out_.flags(flags_);
        out_.width(width_);
    }

private:
    std::ostream& out_;
    std::ios_base::fmtflags flags_;
    std::streamsize width_;
};

/// The classes that the program_info loop and a stream are both dumped with, in their order.
void dumpStreamDescriptors(std::ostream& out, const DescriptorSet& set)
{
    dumpList<DescriptorISO639Language>(out, set);
    dumpList<DescriptorVideoStream>(out, set);
    dumpList<DescriptorAudioStream>(out, set);
    dumpList<DescriptorSTD>(out, set);
    dumpList<DescriptorPrivateDataIndicator>(out, set);
    dumpList<DescriptorCopyright>(out, set);
}

void dumpStream(std::ostream& out, const StreamInfo& stream)
{
    line(out, "stream_type: ", stream.stream_type, 2);
    line(out, "elementary_PID: ", stream.elementary_PID, 4);
    dumpList<DescriptorCA>(out, stream.descriptors);
    dumpList<LowUserPrivate>(out, stream.descriptors);
    dumpList<DescriptorTeletext>(out, stream.descriptors);
    dumpStreamDescriptors(out, stream.descriptors);
    dumpList<DescriptorStreamIdentifier>(out, stream.descriptors);
}

} // namespace

static_assert(std::is_nothrow_move_constructible_v<StreamInfo>);

StreamInfo::StreamInfo(BitReader& loop)
    : stream_type(require(loop, 5).u8())
    , elementary_PID(loop.skip(3).bits(13))
    , ES_info_length(loop.skip(4).bits(12))
    , descriptors(walkEntry(loop.take(ES_info_length)))
{
}

void Pmt::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    PCR_PID = require(in, 4).skip(3).bits(13);
    program_info_length = in.skip(4).bits(12);
    const Bytes loop = require(in, program_info_length).take(program_info_length);
    walkChecked(descriptors, behind(descriptors, loop));
    while (!in.atEnd())
        streams.emplace_back(in);
    requireExactEnd(in);
}

void Pmt::dump(std::ostream& out) const
{
    const SavedFormat saved(out);
    out << std::hex << std::right << std::uppercase << std::unitbuf << std::setfill('0');
    line(out, "program_number: ", table_id_extension, 4);
    line(out, "version_number: ", version_number, 2);
    line(out, "section_number: ", section_number, 2);
    line(out, "last_section_number: ", last_section_number, 2);
    line(out, "current_next_indicator: ", current_next_indicator, 2);
    line(out, "pcr_pid: ", PCR_PID, 2);
    dumpList<DescriptorCA>(out, descriptors);
    dumpList<LowUserPrivate>(out, descriptors);
    dumpStreamDescriptors(out, descriptors);
    out << "Dumping " << streams.size();
    line(out, " stream infos", "");
    for (const StreamInfo& stream : streams)
        dumpStream(out, stream);
    line(out, "crc32: ", CRC_32, 8);
}

} // namespace lib13818
