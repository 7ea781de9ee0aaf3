#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tessaview {

/// Stands for what cannot be read.
constexpr char32_t kReplacement = 0xFFFD;

/// A table by which broadcast texts are coded. There is one object of each, for good.
struct CharacterTable {
    const char* key;  ///< for command lines and settings: "iso-8859-2"
    const char* name; ///< for people: "ISO/IEC 8859-2"
    const char* use;  ///< for people, who writes with it: "Central European"
    /// The characters of a text without its selector; U+FFFD for what the table lacks.
    std::u32string (*decode)(std::string_view text, const CharacterTable& table);
    const char* encoding = ""; ///< what iconv calls it
};

/// The tables that someone may choose. Each has ASCII in its lower half.
std::span<const CharacterTable> selectableTables();

/// The selectable table with this key, in any case of letters; null when there is none.
const CharacterTable* findTable(std::string_view key);

/// ISO 6937, which a text without a selector has.
const CharacterTable& defaultTable();

/// What a text's first bytes select (EN 300 468 Annex A, tables A.3 and A.4).
struct Selection {
    const CharacterTable* table; ///< null: the bytes are reserved or nobody knows their table
    int length;                  ///< how many bytes they are; 0 for a text without a selector
};
Selection selectionOf(std::string_view text);

} // namespace tessaview
