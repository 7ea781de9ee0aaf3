#include "export/database_export.h"
#include "platform/format.h"

namespace tessaview {

namespace {

int firstPid(const lib13818::Pmt* pmt, int type, int otherType)
{
    if (pmt)
        for (const lib13818::StreamInfo& stream : pmt->streams)
            if (stream.stream_type == type || stream.stream_type == otherType)
                return stream.elementary_PID;
    return kNoPid;
}

} // namespace

int FirstVideoPid(const lib13818::Pmt* pmt)
{
    return firstPid(pmt, 1, 2);
}

int FirstAudioPid(const lib13818::Pmt* pmt)
{
    return firstPid(pmt, 3, 4);
}

std::string FormatPrivateBytes(std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t kMostBytes = (256 - 1) / 3; // what a buffer of 256 characters holds
    return hexList(bytes, kMostBytes);
}

} // namespace tessaview
