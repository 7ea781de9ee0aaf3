#include "components/satlist/list_xml.h"

#include "component/bstr.h"
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
void writeFields(pugi::xml_node node, const std::array<Field<Record>, N>& fields,
                 const Record& record)
{
    for (const Field<Record>& field : fields) {
        const std::int32_t value = record.*field.member;
        pugi::xml_attribute attribute = node.append_attribute(field.attribute);
        if (field.isIdentifier)
            attribute.set_value(formatted("0x%04X", static_cast<unsigned>(value)).c_str());
        else
            attribute.set_value(value);
    }
}

template <class Record, std::size_t N>
bool isKnown(const char* attribute, const std::array<Field<Record>, N>& fields)
{
    return std::any_of(fields.begin(), fields.end(), [&](const Field<Record>& field) {
        return std::strcmp(field.attribute, attribute) == 0;
    });
}

template <class IsKnown>
void readForeignAttributes(const pugi::xml_node& node, IsKnown isKnownHere, ForeignParts& foreign)
{
    for (const pugi::xml_attribute& attribute : node.attributes())
        if (!isKnownHere(attribute.name()))
            foreign.attributes.emplace_back(attribute.name(), attribute.value());
}

void keepElement(const pugi::xml_node& node, ForeignParts& foreign)
{
    std::ostringstream text;
    node.print(text, "", pugi::format_raw);
    foreign.elements += text.str();
}

void writeForeign(pugi::xml_node node, const ForeignParts& foreign)
{
    for (const auto& [name, value] : foreign.attributes)
        if (!node.attribute(name.c_str())) // it was not understood, but has a value since
            node.append_attribute(name.c_str()).set_value(value.c_str());
    if (!foreign.elements.empty())
        node.append_buffer(foreign.elements.data(), foreign.elements.size(), pugi::parse_default,
                           pugi::encoding_utf8);
}

/// Whether an attribute holds a value of an optional field, which is then taken.
bool takeOptional(const pugi::xml_attribute& attribute, StoredTransponder& transponder)
{
    for (const OptionalField& field : kOptionalFields) {
        if (std::strcmp(field.attribute, attribute.name()) != 0)
            continue;
        const auto number = decimalOrHexadecimal<std::int32_t>(attribute.value());
        if (!number || !field.takes(*number))
            return false;
        std::int32_t& member = transponder.*field.member;
        member = *number;
        return true;
    }
    return false;
}

void writeOptionals(pugi::xml_node node, const StoredTransponder& transponder)
{
    for (const OptionalField& field : kOptionalFields) {
        const std::int32_t value = transponder.*field.member;
        if (value != ISatTransponderS2::kNotGiven)
            node.append_attribute(field.attribute).set_value(value);
    }
}

std::optional<StoredTransponder> readTransponder(const pugi::xml_node& node)
{
    StoredTransponder transponder;
    if (!readFields(node, kTransponderFields, transponder))
        return std::nullopt;
    for (const pugi::xml_attribute& attribute : node.attributes())
        if (!isKnown(attribute.name(), kTransponderFields) && !takeOptional(attribute, transponder))
            transponder.foreign.attributes.emplace_back(attribute.name(), attribute.value());
    for (const pugi::xml_node& child : node.children())
        keepElement(child, transponder.foreign);
    return transponder;
}

std::optional<StoredSatellite> readSatellite(const pugi::xml_node& node)
{
    StoredSatellite satellite;
    satellite.name = node.attribute(kNameAttribute).value();
    if (!isSatelliteName(satellite.name) || !readFields(node, kSatelliteFields, satellite))
        return std::nullopt;
    readForeignAttributes(
        node,
        [](const char* name) {
            return isKnown(name, kSatelliteFields) || std::strcmp(name, kNameAttribute) == 0;
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
            keepElement(child, satellite.foreign);
    }
    return satellite;
}

void writeSatellite(pugi::xml_node list, const StoredSatellite& satellite)
{
    pugi::xml_node node = list.append_child(kSatelliteElement);
    node.append_attribute(kNameAttribute).set_value(satellite.name.c_str());
    writeFields(node, kSatelliteFields, satellite);
    for (const StoredTransponder& transponder : satellite.transponders) {
        pugi::xml_node child = node.append_child(kTransponderElement);
        writeFields(child, kTransponderFields, transponder);
        writeOptionals(child, transponder);
        writeForeign(child, transponder.foreign);
    }
    writeForeign(node, satellite.foreign);
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
    const pugi::xml_parse_result result = document.load_buffer(xml.data(), xml.size());
    if (result.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    const pugi::xml_node root = document.child(kListElement);
    const char* const version = root.attribute(kVersionAttribute).value();
    if (!result || decimalOrHexadecimal<std::int32_t>(version) != kVersion)
        return std::nullopt;

    StoredList list;
    readForeignAttributes(
        root, [](const char* name) { return std::strcmp(name, kVersionAttribute) == 0; },
        list.foreign);
    std::unordered_set<std::string> names;
    for (const pugi::xml_node& child : root.children()) {
        std::optional<StoredSatellite> satellite;
        if (std::strcmp(child.name(), kSatelliteElement) == 0)
            satellite = readSatellite(child);
        if (satellite && names.insert(satellite->name).second)
            list.satellites.push_back(std::move(*satellite));
        else
            keepElement(child, list.foreign);
    }
    return list;
}

std::string toXml(const StoredList& list)
{
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    pugi::xml_node root = document.append_child(kListElement);
    root.append_attribute(kVersionAttribute).set_value(kVersion);
    for (const StoredSatellite& satellite : list.satellites)
        writeSatellite(root, satellite);
    writeForeign(root, list.foreign);
    std::ostringstream text;
    document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.str();
}

} // namespace tessaview
