#include "charset/iso6937.h"

#include "charset/character_table.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tessaview {

namespace {

constexpr char32_t kNone = kReplacement;

// 0xA0 to 0xBF and 0xD0 to 0xFF; 0xC0 to 0xCF are marks.
constexpr std::array<char32_t, 32> kUpperA{
    0x00A0, 0x00A1, 0x00A2, 0x00A3, 0x20AC, 0x00A5, kNone,  0x00A7, 0x00A4, 0x2018, 0x201C,
    0x00AB, 0x2190, 0x2191, 0x2192, 0x2193, 0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x00D7, 0x00B5,
    0x00B6, 0x00B7, 0x00F7, 0x2019, 0x201D, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x00BF};
constexpr std::array<char32_t, 48> kUpperD{
    0x2015, 0x00B9, 0x00AE, 0x00A9, 0x2122, 0x266A, 0x00AC, 0x00A6, kNone,  kNone,  kNone,  kNone,
    0x215B, 0x215C, 0x215D, 0x215E, 0x2126, 0x00C6, 0x0110, 0x00AA, 0x0126, kNone,  0x0132, 0x013F,
    0x0141, 0x00D8, 0x0152, 0x00BA, 0x00DE, 0x0166, 0x014A, 0x0149, 0x0138, 0x00E6, 0x0111, 0x00F0,
    0x0127, 0x0131, 0x0133, 0x0140, 0x0142, 0x00F8, 0x0153, 0x00DF, 0x00FE, 0x0167, 0x014B, 0x00AD};

/// One diacritical mark: the mark alone, the combining one, and the letters it makes one
/// character with, as pairs of letter and result.
struct Mark {
    char32_t spacing;
    char32_t combining;
    std::u32string_view composed;
};

// clang-format off
// 0xC0 to 0xCF.
constexpr std::array<Mark, 16> kMarks{
    Mark{kNone, 0, U""},
    Mark{U'`', 0x0300, U"AÀEÈIÌNǸOÒUÙaàeèiìnǹoòuùWẀwẁYỲyỳ"},
    Mark{0x00B4, 0x0301, U"AÁCĆEÉIÍLĹNŃOÓRŔSŚUÚYÝZŹaácćeégǵiílĺnńoórŕsśuúyýzź"},
    Mark{U'^', 0x0302, U"AÂCĈEÊGĜHĤIÎJĴOÔSŜUÛWŴYŶaâcĉeêgĝhĥiîjĵoôsŝuûwŵyŷ"},
    Mark{U'~', 0x0303, U"AÃIĨNÑOÕUŨaãiĩnñoõuũEẼeẽ"},
    Mark{0x00AF, 0x0304, U"AĀEĒIĪOŌUŪaāeēiīoōuū"},
    Mark{0x02D8, 0x0306, U"AĂGĞUŬaăgğuŭEĔeĕIĬiĭOŎoŏ"},
    Mark{0x02D9, 0x0307, U"CĊEĖGĠIİZŻcċeėgġzż"},
    Mark{0x00A8, 0x0308, U"AÄEËIÏOÖUÜYŸaäeëiïoöuüyÿ"},
    Mark{kNone, 0x0308, U"AÄEËIÏOÖUÜYŸaäeëiïoöuüyÿ"},
    Mark{0x02DA, 0x030A, U"AÅUŮaåuů"},
    Mark{0x00B8, 0x0327, U"CÇGĢKĶLĻNŅRŖSŞTŢcçkķlļnņrŗsştţgģ"},
    Mark{kNone, 0x0332, U""},
    Mark{0x02DD, 0x030B, U"OŐUŰoőuű"},
    Mark{0x02DB, 0x0328, U"AĄEĘIĮUŲaąeęiįuų"},
    Mark{0x02C7, 0x030C, U"CČDĎEĚLĽNŇRŘSŠTŤZŽcčdďeělľnňrřsštťzž"},
};
// clang-format on

void appendMarked(std::u32string& out, const Mark& mark, char32_t letter)
{
    if (letter == U' ') {
        out.push_back(mark.spacing);
        return;
    }
    for (std::size_t i = 0; i + 1 < mark.composed.size(); i += 2)
        if (mark.composed[i] == letter) {
            out.push_back(mark.composed[i + 1]);
            return;
        }
    out.push_back(letter);
    out.push_back(mark.combining);
}

bool isPrintableAscii(unsigned char c)
{
    return c >= 0x20 && c < 0x7F;
}

} // namespace

std::u32string fromIso6937(std::string_view text)
{
    std::u32string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0xA0) {
            out.push_back(c);
        } else if (c < 0xC0) {
            out.push_back(kUpperA[c - 0xA0U]);
        } else if (c >= 0xD0) {
            out.push_back(kUpperD[c - 0xD0U]);
        } else {
            const bool hasLetter = c != 0xC0 && i + 1 < text.size() &&
                                   isPrintableAscii(static_cast<unsigned char>(text[i + 1]));
            if (hasLetter)
                appendMarked(out, kMarks[c - 0xC0U], static_cast<unsigned char>(text[++i]));
            else
                out.push_back(kReplacement);
        }
    }
    return out;
}

} // namespace tessaview
