#include "si/texts/value_texts.h"

#include <span>

namespace lib13818 {

namespace {

/// The text of all values from `first` to `last`.
struct TextRange {
    int first;
    int last;
    const char* text;
};

/// The text of the first range that holds the value.
const char* textOf(std::span<const TextRange> ranges, int value, const char* other)
{
    for (const TextRange& range : ranges)
        if (value >= range.first && value <= range.last)
            return range.text;
    return other;
}

constexpr const char* kReservedForFutureUse = "reserved for future use";
constexpr const char* kNoGenre = "undefined/user defined/reserved for future use";

// clang-format off
constexpr TextRange kCaProviders[] = {
    {0x0100, 0x01FF, "Canal Plus"},
    {0x0500, 0x05FF, "France Telecom"},
    {0x0600, 0x06FF, "Irdeto"},
    {0x0900, 0x09FF, "News Datacom"},
    {0x0B00, 0x0BFF, "Norwegian Telekom"},
    {0x0D00, 0x0DFF, "Philips"},
    {0x1700, 0x17FF, "BetaTechnik"},
};

constexpr TextRange kPolarizations[] = {
    {0, 0, "linear - horizontal"},
    {1, 1, "linear - vertical"},
    {2, 2, "circular - horizontal"},
    {3, 3, "circular - vertical"},
};

constexpr TextRange kSatelliteModulations[] = {
    {0, 0, "not defined"},
    {1, 1, "QPSK"},
};

constexpr TextRange kFecInner[] = {
    {0, 0, "not defined"},
    {1, 1, "1/2"},
    {2, 2, "2/3"},
    {3, 3, "3/4"},
    {4, 4, "5/6"},
    {5, 5, "7/8"},
    {7, 7, "no conv. coding"},
};

constexpr TextRange kServiceTypes[] = {
    {1, 1, "digital television service"},
    {2, 2, "digital radio sound service"},
    {3, 3, "teletext service"},
    {4, 4, "NVOD reference service"},
    {5, 5, "NVOD time-shifted service"},
    {6, 6, "mosiac service"},
    {7, 7, "PAL coded signal"},
    {8, 8, "SECAM coded signal"},
    {9, 9, "D/D2-MAC"},
    {10, 10, "FM Radio"},
    {11, 11, "NTSC coded signal"},
    {128, 254, "user defined"},
};

constexpr TextRange kTeletextTypes[] = {
    {1, 1, "initial teletext page"},
    {2, 2, "teletext subtitle page"},
    {3, 3, "additional information page"},
    {4, 4, "programme schedule page"},
};

constexpr TextRange kContentLevel1[] = {
    {1, 1, "Movie/Drama"},
    {2, 2, "News/Current affairs"},
    {3, 3, "Show/Game show"},
    {4, 4, "Sports"},
    {5, 5, "Children/Youth programmes"},
    {6, 6, "Music/Ballet/Dance"},
    {7, 7, "Arts/Culture (without music)"},
    {8, 8, "Social/Political issues/Economics"},
    {9, 9, "Education/Science/Factual topics"},
    {10, 10, "Leisure/Hobbies"},
    {11, 11, "Special Charateristics"},
};

// Keyed by level 1 x 16 + level 2.
constexpr TextRange kGenres[] = {
    {0x10, 0x10, "movie/drama (general)"},
    {0x11, 0x11, "detective/thriller"},
    {0x12, 0x12, "adventure/western/war"},
    {0x13, 0x13, "science fiction/fantasy/horror"},
    {0x14, 0x14, "comedy"},
    {0x15, 0x15, "soap/melodrama/folkloric"},
    {0x16, 0x16, "romance"},
    {0x17, 0x17, "serious/classical/religious/historical movie/drama"},
    {0x18, 0x18, "adult movie/drama"},
    {0x20, 0x20, "news/current affairs (general)"},
    {0x21, 0x21, "news/weather report"},
    {0x22, 0x22, "news magazine"},
    {0x23, 0x23, "documentary"},
    {0x24, 0x24, "discussion/interview/debate"},
    {0x30, 0x30, "show/game show (general)"},
    {0x31, 0x31, "game show/quiz/contest"},
    {0x32, 0x32, "variety show"},
    {0x33, 0x33, "talk show"},
    {0x40, 0x40, "sports (general)"},
    {0x41, 0x41, "special events (Olympic Games, World Cupt etc.)"},
    {0x42, 0x42, "sports magazines"},
    {0x43, 0x43, "football/soccer"},
    {0x44, 0x44, "tennis/squash"},
    {0x45, 0x45, "team sports (exluding football)"},
    {0x46, 0x46, "athletics"},
    {0x47, 0x47, "motor sport"},
    {0x48, 0x48, "water sport"},
    {0x49, 0x49, "winther sports"},
    {0x4A, 0x4A, "equestrian"},
    {0x4B, 0x4B, "martial sports"},
    {0x50, 0x50, "children/youth programmes (general)"},
    {0x51, 0x51, "pre-school children's programmes"},
    {0x52, 0x52, "entertainment programmes for 6 - 14"},
    {0x53, 0x53, "entertainment programmes for 10 - 16"},
    {0x54, 0x54, "informational/educational/schools programmes"},
    {0x55, 0x55, "cartoons/puppets"},
    {0x60, 0x60, "music/ballet/dance (general)"},
    {0x61, 0x61, "rock/pop"},
    {0x62, 0x62, "serious music/classical music"},
    {0x63, 0x63, "folk/tradional music"},
    {0x64, 0x64, "jazz"},
    {0x65, 0x65, "musical/opera"},
    {0x66, 0x66, "ballet"},
    {0x70, 0x70, "arts/culture (without music) (general)"},
    {0x71, 0x71, "performing arts"},
    {0x72, 0x72, "fine arts"},
    {0x73, 0x73, "religion"},
    {0x74, 0x74, "popular culture/traditional arts"},
    {0x75, 0x75, "literature"},
    {0x76, 0x76, "film/cinema"},
    {0x77, 0x77, "experimental film/video"},
    {0x78, 0x78, "broadcasting/press"},
    {0x79, 0x79, "new media"},
    {0x7A, 0x7A, "arts/culture magazines"},
    {0x7B, 0x7B, "fashion"},
    {0x80, 0x80, "social/political issues/economics (general)"},
    {0x81, 0x81, "magazines/reports/documentary"},
    {0x82, 0x82, "economics/social advisory"},
    {0x83, 0x83, "remarkable people"},
    {0x90, 0x90, "education/science/factual topics (general)"},
    {0x91, 0x91, "nature/animals/environment"},
    {0x92, 0x92, "technology/natural sciences"},
    {0x93, 0x93, "medicine/physiology/psychology"},
    {0x94, 0x94, "foriegn countries/expeditions"},
    {0x95, 0x95, "social/spiritual sciences"},
    {0x96, 0x96, "further education"},
    {0x97, 0x97, "languages"},
    {0xA0, 0xA0, "leisure/hobbies (general)"},
    {0xA1, 0xA1, "tourism/travel"},
    {0xA2, 0xA2, "handicraft"},
    {0xA3, 0xA3, "motoring"},
    {0xA4, 0xA4, "fitness & health"},
    {0xA5, 0xA5, "cooking"},
    {0xA6, 0xA6, "advertisement/shopping"},
    {0xA7, 0xA7, "gardening"},
    {0xB0, 0xB0, "origianl language"},
    {0xB1, 0xB1, "black & white"},
    {0xB2, 0xB2, "unpublished"},
    {0xB3, 0xB3, "live broadcast"},
};

constexpr TextRange kHierarchyTypes[] = {
    {1, 1, "ITU-T Rec. H.262|ISO/IEC 13818-2 Spatial Scalability"},
    {2, 2, "ITU-T Rec. H.262|ISO/IEC 13818-2 SNR Scalability"},
    {3, 3, "ITU-T Rec. H.262|ISO/IEC 13818-2 Temporal Scalability"},
    {4, 4, "ITU-T Rec. H.262|ISO/IEC 13818-2 Data partitioning"},
    {5, 5, "ISO/IEC 13818-3 Extension bitstream"},
    {6, 6, "ITU-T Rec. H.222.0|ISO/IEC 13818-1 Private Stream"},
    {15, 15, "Base Layer"},
};

constexpr TextRange kAlignmentTypes[] = {
    {1, 1, "Slice, or video access unit"},
    {2, 2, "video access unit"},
    {3, 3, "GOP, or SEQ"},
    {4, 4, "SEQ"},
};

constexpr TextRange kCodingTypes[] = {
    {1, 1, "satellite"},
    {2, 2, "cable"},
    {3, 3, "terrestrial"},
};
// clang-format on

} // namespace

const char* caProviderText(int CA_system_id)
{
    return textOf(kCaProviders, CA_system_id, "unknown provider");
}

const char* polarizationText(int polarization)
{
    return textOf(kPolarizations, polarization, "<unknown>");
}

const char* satelliteModulationText(int modulation)
{
    return textOf(kSatelliteModulations, modulation, "reserved");
}

const char* fecInnerText(int FEC_inner)
{
    return textOf(kFecInner, FEC_inner, "reserved");
}

const char* serviceTypeText(int service_type)
{
    return textOf(kServiceTypes, service_type, kReservedForFutureUse);
}

const char* teletextTypeText(int teletext_type)
{
    return textOf(kTeletextTypes, teletext_type, kReservedForFutureUse);
}

const char* contentNibble1Text(int level1)
{
    return textOf(kContentLevel1, level1, kNoGenre);
}

const char* contentGenreText(int level1, int level2)
{
    return textOf(kGenres, level1 * 16 + level2, kNoGenre);
}

const char* hierarchyTypeText(int hierarchy_type)
{
    return textOf(kHierarchyTypes, hierarchy_type, "reserved");
}

const char* alignmentTypeText(int alignment_type)
{
    return textOf(kAlignmentTypes, alignment_type, "reserved");
}

const char* codingTypeText(int coding_type)
{
    return textOf(kCodingTypes, coding_type, "undefined");
}

const char* streamTypeText(int stream_type)
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

} // namespace lib13818
