#include "acquisition/reader.h"

#include "acquisition/attach_tuning.h"
#include "acquisition/section_batch.h"
#include "acquisition/section_decoding.h"
#include "acquisition/stream_identity.h"
#include "acquisition/table_requests.h"
#include "log/log_file.h"
#include "log/output.h"
#include "log/report.h"
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

template <class Table, class Store>
void takeSection(const TableRequest& request, const lib13818::SectionBytes& section,
                 const char* table, Store store)
{
    if (const auto fault = decodeSection<Table>(section, store)) {
        OutputPrint("Error parsing %s section", table);
        reportFault(request, section.get(), *fault);
    }
}

/// The reading of one transport stream, step by step.
class TransponderRead {
public:
    TransponderRead(const DriverAccess& driver, const std::atomic<bool>& cancelled,
                    const TableSelection& selection, IncompleteStreams incomplete)
        : driver_(driver)
        , cancelled_(cancelled)
        , selection_(selection)
        , tables_(selection)
        , takesIncomplete_(incomplete == IncompleteStreams::Store)
    {
    }

    Reading into(NetworkMap& model);

private:
    // Each gives the outcome that ends the reading, or nothing to go on.
    std::optional<Reading> readTables();
    std::optional<Reading> readPmts();

    /// Whether the tables that were taken so far are enough to go on.
    bool mayGoOn(NeededTables::State last) const;
    bool takeNeededTables();
    void takePat();
    void takeNitActual();
    void takeSdtActual();
    void takeOptionalTables();
    template <class Table>
    NeededTables::State stateOf(SiTable table) const;
    Reading outcome(ReadOutcome outcome, Status status = status::kOk) const;
    void takePmt(std::size_t answer, const TableRequest& request);

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
    bool takesIncomplete_;
    SectionBatch batch_;
    Transponder transponder_;
    std::optional<std::uint32_t> original_network_id_;
    bool mayLackSome_ = false;
};

Reading TransponderRead::outcome(ReadOutcome outcome, Status status) const
{
    Reading reading{.outcome = outcome, .needed = transponder_.needed, .status = status};
    reading.original_network_id = original_network_id_;
    reading.mayLackSome = mayLackSome_;
    if (transponder_.pat.parsed)
        reading.transport_stream_id = transponder_.transport_stream_id;
    return reading;
}

Reading TransponderRead::into(NetworkMap& model)
{
    if (const auto end = readTables())
        return *end;
    if (!takeNeededTables())
        return outcome(ReadOutcome::Incomplete);
    if (!transponder_.needed.areThere()) {
        takeOptionalTables();
        identifyStream(transponder_, original_network_id_);
    }
    if (const Status result = attachTuning(transponder_, driver_); failed(result))
        return outcome(ReadOutcome::TunerFailed, result);
    if (transponder_.needed.areThere()) {
        const Transponder* const before =
            model.find(*original_network_id_, transponder_.transport_stream_id);
        if (before && before->needed.areThere())
            return outcome(ReadOutcome::AlreadyThere);
        takeOptionalTables();
    }
    if (const auto end = readPmts())
        return *end;
    if (isEmpty(transponder_))
        return outcome(ReadOutcome::Incomplete);
    const Reading stored = outcome(ReadOutcome::Stored);
    const bool isNew =
        model.store(original_network_id_.value_or(model.unnamedNetwork()), std::move(transponder_));
    if (!isNew)
        return outcome(ReadOutcome::AlreadyThere);
    if (!stored.needed.areThere())
        reportProblem("stored though incomplete: the stream carries %s",
                      stored.needed.lack().c_str());
    return stored;
}

std::optional<Reading> TransponderRead::readTables()
{
    const Status result = driver_.read(batch_, tables_.requests(), mayLackSome_);
    if (cancelled_)
        return outcome(ReadOutcome::Cancelled);
    if (failed(result)) {
        OutputPrint("Failed to read SI: %#x", statusCode(result));
        return outcome(ReadOutcome::ReadFailed, result);
    }
    OutputPrint("Got SI tables");
    return std::nullopt;
}

bool TransponderRead::mayGoOn(NeededTables::State last) const
{
    return last == NeededTables::State::There || takesIncomplete_;
}

/// Takes PAT, NIT and SDT, up to the first that ends the reading; what is missing behind that is
/// noted all the same, so that all of it can be told at once.
bool TransponderRead::takeNeededTables()
{
    NeededTables& needed = transponder_.needed;
    needed.pat = stateOf<Pat>(SiTable::Pat);
    needed.sdt = stateOf<Sdt>(SiTable::SdtActual);
    if (batch_.count(*tables_.place(SiTable::NitActual)) <= 0)
        needed.nit = NeededTables::State::Missing;
    takePat();
    if (!mayGoOn(needed.pat))
        return false;
    takeNitActual();
    if (!mayGoOn(needed.nit))
        return false;
    takeSdtActual();
    return mayGoOn(needed.sdt);
}

template <class Table>
NeededTables::State TransponderRead::stateOf(SiTable table) const
{
    const std::size_t answer = *tables_.place(table);
    for (std::size_t i = 0; i < batch_.usable(answer); ++i)
        if (!decodeSection<Table>(batch_.section(answer, i), [](Table&&) {}))
            return NeededTables::State::There;
    return batch_.usable(answer) > 0 ? NeededTables::State::Undecodable
                                     : NeededTables::State::Missing;
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
        takeSection<Table>(tables_.requests()[answer], batch_.section(answer, i),
                           siTableName(table), store);
    batch_.release(answer);
}

void TransponderRead::takePat()
{
    const auto answer = announce(SiTable::Pat);
    takeEach<Pat>(SiTable::Pat, *answer, [this](Pat&& pat) {
        if (!transponder_.pat.parsed)
            transponder_.pat = std::move(pat);
    });
    if (transponder_.pat.parsed)
        transponder_.transport_stream_id = sectionKey(transponder_.pat.table_id_extension);
}

void TransponderRead::takeNitActual()
{
    const auto answer = announce(SiTable::NitActual);
    takeEach<Nit>(SiTable::NitActual, *answer,
                  [this](Nit&& nit) { storeNit(transponder_.nitActual, std::move(nit)); });
}

void TransponderRead::takeSdtActual()
{
    const auto answer = announce(SiTable::SdtActual);
    takeEach<Sdt>(SiTable::SdtActual, *answer, [this](Sdt&& sdt) {
        original_network_id_ = sectionKey(sdt.original_network_id);
        storeSdt(transponder_.sdtActual, std::move(sdt));
    });
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
    const auto store = [&place](Table&& decoded) { place = std::move(decoded); };
    if (batch_.usable(*answer) > 0)
        takeSection<Table>(tables_.requests()[*answer], batch_.section(*answer, 0),
                           siTableName(table), store);
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
        const auto fault =
            decodeSection<Eit>(section, [&place](Eit&& eit) { storeEit(place, std::move(eit)); });
        if (!fault)
            continue;
        printAndLog(log_level::kError, "Error parsing %s section: %d", name, fault->code);
        reportFault(tables_.requests()[*answer], section.get(), *fault);
    }
    batch_.release(*answer);
}

std::optional<Reading> TransponderRead::readPmts()
{
    if (!selection_.IsTableEnabled(si_table::kPmt))
        return std::nullopt;
    const std::vector<TableRequest> requests = pmtRequests(transponder_.pat);
    const Status result = driver_.read(batch_, requests, mayLackSome_);
    if (cancelled_)
        return outcome(ReadOutcome::Cancelled);
    if (failed(result)) {
        mayLackSome_ = true;
        reportProblem("the PMTs could not be read: %08X", statusCode(result));
        return std::nullopt;
    }
    transponder_.pmts.reserve(requests.size());
    for (std::size_t i = 0; i < requests.size(); ++i)
        takePmt(i, requests[i]);
    return std::nullopt;
}

void TransponderRead::takePmt(std::size_t answer, const TableRequest& request)
{
    OutputPrint("Got %d PMT section(s) for SID %04X", batch_.count(answer),
                sectionKey(request.table_id_extension));
    const auto store = [this](Pmt&& pmt) { transponder_.pmts.push_back(std::move(pmt)); };
    if (batch_.usable(answer) > 0)
        takeSection<Pmt>(request, batch_.section(answer, 0), "PMT", store);
    batch_.release(answer);
}

} // namespace

Reader::Reader(IUnknown* driver, const std::atomic<bool>& cancelled, TableSelection selection,
               IncompleteStreams incomplete)
    : driver_(driver)
    , cancelled_(cancelled)
    , selection_(std::move(selection))
    , incomplete_(incomplete)
{
}

Reading Reader::ReadCurrentTransponder(NetworkMap& model)
{
    return TransponderRead(driver_, cancelled_, selection_, incomplete_).into(model);
}

} // namespace tessaview
