#include "components/satlist/list_xml.h"

#include "component/bstr.h"
#include "components/satlist/xml_text.h"
#include "platform/format.h"
#include "platform/number.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <pugixml.hpp>
#include <set>
#include <sstream>
#include <unordered_set>

namespace tessaview {

namespace {

constexpr const char* kListElement = "satellites";
constexpr const char* kVersionAttribute = "version";
constexpr std::int32_t kVersion = 1;
constexpr const char* kSatelliteElement = "satellite";
constexpr const char* kNameAttribute = "name";
constexpr const char* kTransponderElement = "transponder";
constexpr std::size_t kMaxNameBytes = 1000;
// Blanks and line ends within elements that are not known stay as they were written.
constexpr unsigned kParsing =
    pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute | pugi::parse_ws_pcdata;

/// A number that an attribute holds.
template <class Record>
struct Field {
    const char* attribute;
    std::int32_t Record::*member;
    bool isIdentifier = false; ///< hexadecimal, 16 bits, required
};

constexpr std::array kSatelliteFields{
    Field<StoredSatellite>{"selected", &StoredSatellite::selected},
    Field<StoredSatellite>{"added", &StoredSatellite::addedByUser},
};

constexpr std::array kTransponderFields{
    Field<StoredTransponder>{"nid", &StoredTransponder::nid, true},
    Field<StoredTransponder>{"tsid", &StoredTransponder::tsid, true},
    Field<StoredTransponder>{"frequency", &StoredTransponder::frequency},
    Field<StoredTransponder>{"polarization", &StoredTransponder::polarization},
    Field<StoredTransponder>{"symbolrate", &StoredTransponder::symbolRate},
    Field<StoredTransponder>{"fec", &StoredTransponder::fec},
    Field<StoredTransponder>{"flag", &StoredTransponder::flag},
};

/// Reads the fields that are there; false when one holds no number or an identifier is missing.
template <class Record, std::size_t N>
bool readFields(const pugi::xml_node& node, const std::array<Field<Record>, N>& fields,
                Record& record)
{
    for (const Field<Record>& field : fields) {
        const pugi::xml_attribute attribute = node.attribute(field.attribute);
        if (!attribute && !field.isIdentifier)
            continue;
        const auto number = decimalOrHexadecimal<std::int32_t>(attribute.value());
        if (!number || (field.isIdentifier && !isIdentifier(*number)))
            return false;
        std::int32_t& member = record.*field.member;
        member = *number;
    }
    return true;
}

template <class Record, std::size_t N>
void writeFields(XmlText& xml, const std::array<Field<Record>, N>& fields, const Record& record)
{
    for (const Field<Record>& field : fields) {
        const std::int32_t value = record.*field.member;
        xml.attributes(attributeText(
            field.attribute, field.isIdentifier ? formatted("0x%04X", static_cast<unsigned>(value))
                                                : std::to_string(value)));
    }
}

template <class Record, std::size_t N>
bool isKnown(const char* attribute, const std::array<Field<Record>, N>& fields)
{
    return std::any_of(fields.begin(), fields.end(), [&](const Field<Record>& field) {
        return std::strcmp(field.attribute, attribute) == 0;
    });
}

/// Keeps the attributes that are not known; of several with one name the first.
template <class IsKnown>
void keepAttributes(const pugi::xml_node& node, IsKnown isKnownHere, ForeignParts& foreign)
{
    std::unordered_set<std::string_view> names;
    for (const pugi::xml_attribute& attribute : node.attributes())
        if (!isKnownHere(attribute) && names.insert(attribute.name()).second)
            foreign.attributes += attributeText(attribute.name(), attribute.value());
}

/// Keeps a child that is not known, but for blanks between elements.
void keepChild(const pugi::xml_node& node, ForeignParts& foreign)
{
    const std::string_view value = node.value();
    if (node.type() == pugi::node_pcdata &&
        value.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return;
    std::ostringstream text;
    node.print(text, "", pugi::format_raw);
    foreign.elements += text.str();
}

/// Takes an attribute that is an optional field, its value or, when it is none, its text; whether
/// it is one.
bool takeOptional(const pugi::xml_attribute& attribute, StoredTransponder& transponder)
{
    for (const OptionalField& field : kOptionalFields) {
        if (std::strcmp(field.attribute, attribute.name()) != 0)
            continue;
        const auto number = decimalOrHexadecimal<std::int32_t>(attribute.value());
        std::int32_t& member = transponder.*field.member;
        if (number && field.takes(*number))
            member = *number;
        else if (transponder.misread.size() < kOptionalFields.size())
            transponder.misread.emplace_back(attribute.name(), attribute.value());
        return true;
    }
    return false;
}

void writeOptionals(XmlText& xml, const StoredTransponder& transponder)
{
    for (const OptionalField& field : kOptionalFields) {
        const std::int32_t value = transponder.*field.member;
        const auto misread =
            std::find_if(transponder.misread.begin(), transponder.misread.end(),
                         [&](const auto& each) { return each.first == field.attribute; });
        if (value != ISatTransponderS2::kNotGiven)
            xml.attributes(attributeText(field.attribute, std::to_string(value)));
        else if (misread != transponder.misread.end())
            xml.attributes(attributeText(field.attribute, misread->second));
    }
}

std::optional<StoredTransponder> readTransponder(const pugi::xml_node& node)
{
    StoredTransponder transponder;
    if (!readFields(node, kTransponderFields, transponder))
        return std::nullopt;
    keepAttributes(
        node,
        [&](const pugi::xml_attribute& attribute) {
            return isKnown(attribute.name(), kTransponderFields) ||
                   takeOptional(attribute, transponder);
        },
        transponder.foreign);
    for (const pugi::xml_node& child : node.children())
        keepChild(child, transponder.foreign);
    return transponder;
}

std::optional<StoredSatellite> readSatellite(const pugi::xml_node& node)
{
    StoredSatellite satellite;
    satellite.name = node.attribute(kNameAttribute).value();
    if (!isSatelliteName(satellite.name) || !readFields(node, kSatelliteFields, satellite))
        return std::nullopt;
    keepAttributes(
        node,
        [](const pugi::xml_attribute& attribute) {
            return isKnown(attribute.name(), kSatelliteFields) ||
                   std::strcmp(attribute.name(), kNameAttribute) == 0;
        },
        satellite.foreign);
    std::set<std::pair<std::int32_t, std::int32_t>> keys;
    for (const pugi::xml_node& child : node.children()) {
        std::optional<StoredTransponder> transponder;
        if (std::strcmp(child.name(), kTransponderElement) == 0)
            transponder = readTransponder(child);
        if (transponder && keys.emplace(transponder->nid, transponder->tsid).second)
            satellite.transponders.push_back(std::move(*transponder));
        else
            keepChild(child, satellite.foreign);
    }
    return satellite;
}

void writeSatellite(XmlText& xml, const StoredSatellite& satellite)
{
    xml.open(kSatelliteElement);
    xml.attributes(attributeText(kNameAttribute, satellite.name));
    writeFields(xml, kSatelliteFields, satellite);
    xml.attributes(satellite.foreign.attributes);
    for (const StoredTransponder& transponder : satellite.transponders) {
        xml.open(kTransponderElement);
        writeFields(xml, kTransponderFields, transponder);
        writeOptionals(xml, transponder);
        xml.attributes(transponder.foreign.attributes);
        xml.content(transponder.foreign.elements);
        xml.close();
    }
    xml.content(satellite.foreign.elements);
    xml.close();
}

} // namespace

bool isSatelliteName(const std::string& utf8)
{
    if (utf8.empty() || utf8.size() > kMaxNameBytes)
        return false;
    for (const char16_t unit : toUtf16(utf8))
        if (unit < 0x20 || unit == 0x7F || unit >= 0xFFFE)
            return false;
    return toUtf8(toUtf16(utf8)) == utf8;
}

std::optional<StoredList> parseList(std::string_view xml)
{
    if (xml.size() > kMaxListBytes)
        return std::nullopt;
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(xml.data(), xml.size(), kParsing);
    if (result.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    const pugi::xml_node root = document.child(kListElement);
    const char* const version = root.attribute(kVersionAttribute).value();
    if (!result || decimalOrHexadecimal<std::int32_t>(version) != kVersion)
        return std::nullopt;

    StoredList list;
    keepAttributes(
        root,
        [](const pugi::xml_attribute& attribute) {
            return std::strcmp(attribute.name(), kVersionAttribute) == 0;
        },
        list.foreign);
    std::unordered_set<std::string> names;
    for (const pugi::xml_node& child : root.children()) {
        std::optional<StoredSatellite> satellite;
        if (std::strcmp(child.name(), kSatelliteElement) == 0)
            satellite = readSatellite(child);
        if (satellite && names.insert(satellite->name).second)
            list.satellites.push_back(std::move(*satellite));
        else
            keepChild(child, list.foreign);
    }
    return list;
}

std::string toXml(const StoredList& list)
{
    XmlText xml;
    xml.open(kListElement);
    xml.attributes(attributeText(kVersionAttribute, std::to_string(kVersion)));
    xml.attributes(list.foreign.attributes);
    for (const StoredSatellite& satellite : list.satellites)
        writeSatellite(xml, satellite);
    xml.content(list.foreign.elements);
    xml.close();
    return xml.take();
}

} // namespace tessaview
