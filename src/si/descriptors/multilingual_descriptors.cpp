#include "si/descriptors/multilingual_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

namespace {

void requireBytes(const BitReader& in, int bytes, const char* otherwise)
{
    if (in.bytesLeft() < bytes)
        throw error(kBadContent, otherwise);
}

Code readEntryCode(BitReader& in, int entryBytes, const char* otherwise)
{
    requireBytes(in, entryBytes, otherwise);
    return readCode(in);
}

/// A text of the entry that `bytesBehind` more bytes have to follow.
std::string_view readEntryText(BitReader& in, int length, int bytesBehind, const char* otherwise)
{
    requireBytes(in, length + bytesBehind, otherwise);
    return in.text(length);
}

void dumpNames(std::ostream& out, const Records<MultilingualNameInfo>& entries)
{
    for (const MultilingualNameInfo& entry : entries) {
        line(out,
             "MultilingualNameInfo::ISO_639_language_code: ", entry.ISO_639_language_code.data());
        line(out, "MultilingualNameInfo::text_len: ", entry.text_len);
        line(out, "MultilingualNameInfo::name: ", entry.name);
    }
}

} // namespace

MultilingualNameInfo::MultilingualNameInfo(BitReader& in)
    : ISO_639_language_code(readEntryCode(in, 4, "multilingual_name_info_descriptor"))
    , text_len(in.u8())
    , name(readEntryText(in, text_len, 0, "multilingual_name_info_descriptor:2"))
{
}

DescriptorMultilingualNetworkName::DescriptorMultilingualNetworkName(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<MultilingualNameInfo>(in, kRecordsMissTheEnd))
{
}

void DescriptorMultilingualNetworkName::dumpBody(std::ostream& out) const
{
    dumpNames(out, entries);
}

DescriptorMultilingualBouquetName::DescriptorMultilingualBouquetName(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<MultilingualNameInfo>(in, kRecordsMissTheEnd))
{
}

void DescriptorMultilingualBouquetName::dumpBody(std::ostream& out) const
{
    dumpNames(out, entries);
}

DescriptorMultilingualServiceName::MultilingualServiceNameInfo::MultilingualServiceNameInfo(
    BitReader& in)
    : ISO_639_language_code(readEntryCode(in, 5, "multilingual_service_name_info_descriptor"))
    , provider_len(in.u8())
    , providername(
          readEntryText(in, provider_len, 1, "multilingual_service_name_info_descriptor:2"))
    , service_len(in.u8())
    , servicename(readEntryText(in, service_len, 0, "multilingual_service_name_info_descriptor:3"))
{
}

DescriptorMultilingualServiceName::DescriptorMultilingualServiceName(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecordsToEnd<MultilingualServiceNameInfo>(in, kRecordsMissTheEnd))
{
}

void DescriptorMultilingualServiceName::dumpBody(std::ostream& out) const
{
    for (const MultilingualServiceNameInfo& entry : entries) {
        line(out,
             "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::"
             "ISO_639_language_code: ",
             entry.ISO_639_language_code.data());
        line(out, "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::provider_len: ",
             entry.provider_len);
        line(out, "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::providername: ",
             entry.providername);
        line(out, "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::service_len: ",
             entry.service_len);
        line(out, "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::servicename: ",
             entry.servicename);
    }
}

DescriptorMultilingualComponent::DescriptorMultilingualComponent(DescriptorReader in)
    : DescriptorOf(in)
    , component_tag(in.u8())
    , entries(readRecordsToEnd<MultilingualNameInfo>(in, kRecordsMissTheEnd))
{
}

void DescriptorMultilingualComponent::dumpBody(std::ostream& out) const
{
    line(out, "component_tag: ", component_tag);
    dumpNames(out, entries);
}

} // namespace lib13818
