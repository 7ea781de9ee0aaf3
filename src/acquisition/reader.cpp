#include "acquisition/reader.h"

#include "acquisition/attach_tuning.h"
#include "acquisition/section_batch.h"
#include "acquisition/section_decoding.h"
#include "acquisition/table_requests.h"
#include "log/log_file.h"
#include "log/output.h"
#include "platform/format.h"

#include <optional>
#include <span>
#include <string>
#include <utility>

namespace tessaview {

namespace {

using lib13818::Bat;
using lib13818::Cat;
using lib13818::Eit;
using lib13818::Nit;
using lib13818::Pat;
using lib13818::Pmt;
using lib13818::Rst;
using lib13818::Sdt;
using lib13818::Tdt;
using lib13818::Tot;

using Bytes = std::span<const std::uint8_t>;

void storeSdt(SdtMap& networks, Sdt&& sdt)
{
    SdtSections& sections =
        networks[sectionKey(sdt.original_network_id)][sectionKey(sdt.table_id_extension)];
    sections.insert_or_assign(sectionKey(sdt.section_number), std::move(sdt));
}

void storeEit(EitMap& networks, Eit&& eit)
{
    EitServices& services =
        networks[sectionKey(eit.original_network_id)][sectionKey(eit.transport_stream_id)];
    EitSections& sections = services[sectionKey(eit.table_id_extension)];
    sections.insert_or_assign(sectionKey(eit.section_number), std::move(eit));
}

/// The first four bytes, which tell table_id, length and half of what comes next.
void logFirstBytes(Bytes section)
{
    LogPrint(g_log, log_level::kDetail, "%s", hexList(section, 4).c_str());
}

/// The reading of one transport stream, step by step.
class TransponderRead {
public:
    TransponderRead(const DriverAccess& driver, const std::atomic<bool>& cancelled,
                    const TableSelection& selection)
        : driver_(driver)
        , cancelled_(cancelled)
        , selection_(selection)
        , tables_(selection)
    {
    }

    ReadOutcome into(NetworkMap& model);

private:
    // Each gives the outcome that ends the reading, or nothing to go on.
    std::optional<ReadOutcome> readTables();
    std::optional<ReadOutcome> takePat();
    std::optional<ReadOutcome> takeNitActual();
    std::optional<ReadOutcome> takeSdtActual();
    std::optional<ReadOutcome> readPmts();

    void takeOptionalTables();
    void takePmt(std::size_t answer, int program_number);

    /// Says how many sections a table has. Nothing when it was not requested.
    std::optional<std::size_t> announce(SiTable table) const;

    template <class Table>
    void takeFirst(SiTable table, Table& place);
    template <class Table, class Store>
    void takeEach(SiTable table, std::size_t answer, Store store);
    void takeEit(SiTable table, EitMap& place);

    const DriverAccess& driver_;
    const std::atomic<bool>& cancelled_;
    const TableSelection& selection_;
    TableRequests tables_;
    SectionBatch batch_;
    Transponder transponder_;
    std::uint32_t original_network_id_ = 0;
};

ReadOutcome TransponderRead::into(NetworkMap& model)
{
    if (const auto end = readTables())
        return *end;
    if (const auto end = takePat())
        return *end;
    if (const auto end = takeNitActual())
        return *end;
    if (const auto end = takeSdtActual())
        return *end;
    if (failed(attachTuning(transponder_, driver_)))
        return ReadOutcome::TunerFailed;
    if (model.find(original_network_id_, transponder_.transport_stream_id))
        return ReadOutcome::AlreadyThere;
    takeOptionalTables();
    if (const auto end = readPmts())
        return *end;
    model.store(original_network_id_, std::move(transponder_));
    return ReadOutcome::Stored;
}

std::optional<ReadOutcome> TransponderRead::readTables()
{
    const Status result = driver_.read(batch_, tables_.requests());
    if (cancelled_)
        return ReadOutcome::Cancelled;
    if (failed(result)) {
        OutputPrint("Failed to read SI: %#x", statusCode(result));
        return ReadOutcome::ReadFailed;
    }
    OutputPrint("Got SI tables");
    return std::nullopt;
}

std::optional<std::size_t> TransponderRead::announce(SiTable table) const
{
    const auto answer = tables_.place(table);
    if (answer)
        OutputPrint("Got %d %s sections", batch_.count(*answer), siTableName(table));
    return answer;
}

template <class Table, class Store>
void TransponderRead::takeEach(SiTable table, std::size_t answer, Store store)
{
    for (std::size_t i = 0; i < batch_.usable(answer); ++i)
        if (decodeSection<Table>(batch_.section(answer, i), store))
            OutputPrint("Error parsing %s section", siTableName(table));
    batch_.release(answer);
}

std::optional<ReadOutcome> TransponderRead::takePat()
{
    const auto answer = announce(SiTable::Pat);
    takeEach<Pat>(SiTable::Pat, *answer, [this](Pat&& pat) {
        if (!transponder_.pat.parsed)
            transponder_.pat = std::move(pat);
    });
    if (!transponder_.pat.parsed)
        return ReadOutcome::NoPat;
    transponder_.transport_stream_id = sectionKey(transponder_.pat.table_id_extension);
    return std::nullopt;
}

std::optional<ReadOutcome> TransponderRead::takeNitActual()
{
    const auto answer = announce(SiTable::NitActual);
    if (batch_.count(*answer) <= 0)
        return ReadOutcome::NoNit;
    takeEach<Nit>(SiTable::NitActual, *answer,
                  [this](Nit&& nit) { storeNit(transponder_.nitActual, std::move(nit)); });
    return std::nullopt;
}

std::optional<ReadOutcome> TransponderRead::takeSdtActual()
{
    const auto answer = announce(SiTable::SdtActual);
    takeEach<Sdt>(SiTable::SdtActual, *answer, [this](Sdt&& sdt) {
        original_network_id_ = sectionKey(sdt.original_network_id);
        storeSdt(transponder_.sdtActual, std::move(sdt));
    });
    if (transponder_.sdtActual.empty())
        return ReadOutcome::NoSdt;
    return std::nullopt;
}

void TransponderRead::takeOptionalTables()
{
    takeFirst(SiTable::Cat, transponder_.cat);
    takeFirst(SiTable::Rst, transponder_.rst);
    takeFirst(SiTable::Tot, transponder_.tot);
    takeFirst(SiTable::Tdt, transponder_.tdt);
    takeFirst(SiTable::Bat, transponder_.bat);
    if (const auto answer = announce(SiTable::NitOther))
        takeEach<Nit>(SiTable::NitOther, *answer,
                      [this](Nit&& nit) { storeNit(transponder_.nitOther, std::move(nit)); });
    if (const auto answer = announce(SiTable::SdtOther))
        takeEach<Sdt>(SiTable::SdtOther, *answer,
                      [this](Sdt&& sdt) { storeSdt(transponder_.sdtOther, std::move(sdt)); });
    takeEit(SiTable::EitPfActual, transponder_.eitPfActual);
    takeEit(SiTable::EitPfOther, transponder_.eitPfOther);
    takeEit(SiTable::EitScheduleActual, transponder_.eitScheduleActual);
    takeEit(SiTable::EitScheduleOther, transponder_.eitScheduleOther);
}

template <class Table>
void TransponderRead::takeFirst(SiTable table, Table& place)
{
    const auto answer = announce(table);
    if (!answer)
        return;
    if (batch_.usable(*answer) > 0 &&
        decodeSection<Table>(batch_.section(*answer, 0),
                             [&place](Table&& decoded) { place = std::move(decoded); }))
        OutputPrint("Error parsing %s section", siTableName(table));
    batch_.release(*answer);
}

void TransponderRead::takeEit(SiTable table, EitMap& place)
{
    const auto answer = announce(table);
    if (!answer)
        return;
    const char* const name = siTableName(table);
    LogPrint(g_log, log_level::kDetail, "Got %d %s sections", batch_.count(*answer), name);
    for (std::size_t i = 0; i < batch_.usable(*answer); ++i) {
        const lib13818::SectionBytes section = batch_.section(*answer, i);
        if (table == SiTable::EitPfActual)
            logFirstBytes(section.get());
        const auto code =
            decodeSection<Eit>(section, [&place](Eit&& eit) { storeEit(place, std::move(eit)); });
        if (!code)
            continue;
        OutputPrint("Error parsing %s section: %d", name, *code);
        LogPrint(g_log, log_level::kError, "Error parsing %s section: %d", name, *code);
    }
    batch_.release(*answer);
}

std::optional<ReadOutcome> TransponderRead::readPmts()
{
    if (!selection_.IsTableEnabled(si_table::kPmt))
        return std::nullopt;
    const std::vector<TableRequest> requests = pmtRequests(transponder_.pat);
    const Status result = driver_.read(batch_, requests);
    if (cancelled_)
        return ReadOutcome::Cancelled;
    if (failed(result))
        return std::nullopt;
    transponder_.pmts.reserve(requests.size());
    for (std::size_t i = 0; i < requests.size(); ++i)
        takePmt(i, requests[i].table_id_extension);
    return std::nullopt;
}

void TransponderRead::takePmt(std::size_t answer, int program_number)
{
    OutputPrint("Got %d PMT section(s) for SID %04X", batch_.count(answer),
                sectionKey(program_number));
    if (batch_.usable(answer) > 0 &&
        decodeSection<Pmt>(batch_.section(answer, 0),
                           [this](Pmt&& pmt) { transponder_.pmts.push_back(std::move(pmt)); }))
        OutputPrint("Error parsing PMT section");
    batch_.release(answer);
}

} // namespace

Reader::Reader(IUnknown* driver, const std::atomic<bool>& cancelled, TableSelection selection)
    : driver_(driver)
    , cancelled_(cancelled)
    , selection_(std::move(selection))
{
}

ReadOutcome Reader::ReadCurrentTransponder(NetworkMap& model)
{
    return TransponderRead(driver_, cancelled_, selection_).into(model);
}

} // namespace tessaview
