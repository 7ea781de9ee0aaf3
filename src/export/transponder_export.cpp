#include "export/transponder_export.h"

#include "charset/display_text.h"
#include "export/database_export.h"
#include "model/service_entry.h"
#include "platform/format.h"
#include "si/texts/registries.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <string_view>

namespace tessaview {

namespace {

using lib13818::DescriptorCA;

/// What stands for a service that the SDT does not describe.
constexpr std::string_view kNotInSdt = "<service not in sdt>";
constexpr int kUnknownValue = -1;

/// Rounded; 0 where the frequency is not known.
std::int32_t megahertzOf(const Tuning& tuning)
{
    return hasFrequency(tuning)
               ? static_cast<std::int32_t>((frequencyOf(tuning) + kMegahertz / 2) / kMegahertz)
               : 0;
}

/// The record's number times 1000, at most the largest there is.
std::int32_t symbolRateColumn(const Tuning& tuning)
{
    constexpr std::uint64_t largest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(
        std::min(symbolRateOf(tuning) / kSymbolRateUnit * 1000, largest));
}

const lib13818::Pmt* findPmt(const Transponder& transponder, int program_number)
{
    for (const lib13818::Pmt& pmt : transponder.pmts)
        if (pmt.table_id_extension == program_number)
            return &pmt;
    return nullptr;
}

/// A row for each CA descriptor, under the row that `owner` names.
void writeAccess(TableWriter& table, const ColumnValue& owner,
                 const lib13818::DescriptorSet& descriptors)
{
    for (const DescriptorCA& access : descriptors.all<DescriptorCA>()) {
        const std::string provider =
            registryText(lib13818::caSystemName(static_cast<uint32_t>(access.CA_system_id)));
        const std::string privateBytes = FormatPrivateBytes(access.private_data_byte);
        table.add({owner,
                   {"SYSTEM_ID", access.CA_system_id},
                   {"CAPROVIDER_NAME", provider},
                   {"CA_PID", access.CA_PID},
                   {"PRIVATEBYTES", privateBytes}});
    }
}

int firstPid(const lib13818::Pmt* pmt, int type, int otherType)
{
    if (pmt)
        for (const lib13818::StreamInfo& stream : pmt->streams)
            if (stream.stream_type == type || stream.stream_type == otherType)
                return stream.elementary_PID;
    return kNoPid;
}

} // namespace

TransponderExport::TransponderExport(Database& database, const CharsetPolicy& charsets)
    : charsets_(charsets)
    , transponders_(database, "tb_transponder")
    , services_(database, "tb_service")
    , ecms_(database, "tb_ca_ecm")
    , emms_(database, "tb_ca_emm")
{
}

void TransponderExport::write(const Network& network, const Transponder& transponder)
{
    const auto* const satellite = std::get_if<SatelliteTuning>(&transponder.tuning);
    const std::int64_t id =
        transponders_.add({{"NID", network.original_network_id},
                           {"TID", transponder.transport_stream_id},
                           {"FREQUENCY", megahertzOf(transponder.tuning)},
                           {"POLARIZATION", satellite ? satellite->polarization : 0},
                           {"SYMBOLRATE", symbolRateColumn(transponder.tuning)},
                           {"FEC", innerFecOf(transponder.tuning)}});
    writeAccess(emms_, {"TRANSPONDER_ID", id}, transponder.cat.descriptors);

    const CharsetRule& charset = charsets_.ruleFor(network.original_network_id);
    std::set<int> written; // a PAT that lists a program again means nothing by it
    for (const lib13818::PatProgram& program : transponder.pat.programs)
        if (program.program_number != 0 && written.insert(program.program_number).second)
            writeService(id, charset, program,
                         findService(transponder.sdtActual, std::nullopt,
                                     transponder.transport_stream_id,
                                     static_cast<std::uint32_t>(program.program_number)),
                         findPmt(transponder, program.program_number));
}

void TransponderExport::writeService(std::int64_t transponderId, const CharsetRule& charset,
                                     const lib13818::PatProgram& program,
                                     const lib13818::SdtService* entry, const lib13818::Pmt* pmt)
{
    const std::optional<lib13818::DescriptorService> described = serviceDescriptorOf(entry);
    const auto shown = [&](std::string_view text) {
        return displayText(BroadcastText{.text = text}, charset);
    };
    const std::string name = described ? shown(described->service_name) : "";
    const std::string provider = described ? shown(described->provider_name) : "";
    const std::int64_t id = services_.add(
        {{"TRANSPONDER_ID", transponderId},
         {"SID", program.program_number},
         {"SERVICENAME", described ? name : kNotInSdt},
         {"PROVIDERNAME", described ? provider : kNotInSdt},
         {"TYPE", described ? described->service_type : kUnknownValue},
         {"FREE_CA", entry ? entry->free_CA_mode : kUnknownValue},
         {"EIT_SCHEDULE", entry ? entry->EIT_schedule_flag : kUnknownValue},
         {"EIT_PRESENT_FOLLOWING", entry ? entry->EIT_present_following_flag : kUnknownValue},
         {"VPID", FirstVideoPid(pmt)},
         {"APID", FirstAudioPid(pmt)},
         {"PCR", pmt ? pmt->PCR_PID : kNoPid},
         {"PMT", program.program_map_PID}});
    if (!pmt)
        return;
    writeAccess(ecms_, {"SERVICE_ID", id}, pmt->descriptors);
    for (const lib13818::StreamInfo& stream : pmt->streams)
        writeAccess(ecms_, {"SERVICE_ID", id}, stream.descriptors);
}

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
