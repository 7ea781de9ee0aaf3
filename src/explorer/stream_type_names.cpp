#include "explorer/stream_type_names.h"

#include <array>
#include <cstddef>

namespace tessaview {

const char* streamTypeName(int stream_type)
{
    constexpr std::array kNames{"RESERVED",
                                "ISO11172 VIDEO",
                                "ISO13818-2 VIDEO",
                                "ISO11172 AUDIO",
                                "ISO13818-3 AUDIO",
                                "ISO13818-1 PRIVATE SECTIONS",
                                "ISO13818-1 PRIVATE DATA PES",
                                "ISO13522 MHEG",
                                "ISO13818-1 Annex A DSM CC",
                                "ITU-T H.222.1",
                                "ISO13818-6 TYPE A",
                                "ISO13818-6 TYPE B",
                                "ISO13818-6 TYPE C",
                                "ISO13818-6 TYPE D",
                                "ISO13818-1 AUXILIARY"};
    if (stream_type >= 0x80)
        return "USER PRIVATE";
    const auto index = static_cast<std::size_t>(stream_type);
    return index < kNames.size() ? kNames[index] : "RESERVED";
}

} // namespace tessaview
