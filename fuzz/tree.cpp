// Sections as a driver hands them over, read into the model and shown: every node of the tree with
// its rows. The first byte of each is followed by the section; a CRC_32 is put right unless the
// byte's top bit says to leave it.

#include "acquisition/reader.h"
#include "drivers/common/table_ids.h"
#include "fuzz/table_harness.h"
#include "log/log_line.h"
#include "tests/support/scripted_driver.h"
#include "tree/tree_walk.h"
#include "tree/value_row.h"

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace): what is fuzzed

/// What a request asks for, as far as a driver has to look.
bool isWanted(const TableRequest& request, std::span<const uint8_t> section)
{
    if (((section[0] ^ request.table_id) & tableIdMask(request.table_id)) != 0)
        return false;
    return request.match_table_id_extension == 0 ||
           (section.size() > 4 && (section[3] << 8 | section[4]) == request.table_id_extension);
}

std::vector<test::Bytes> sectionsIn(std::span<const uint8_t> input)
{
    std::vector<test::Bytes> sections;
    while (input.size() >= 4) {
        const bool isDamaged = (input[0] & 0x80) != 0;
        input = input.subspan(1);
        const std::size_t length = std::min(input.size(), lib13818::sectionSize(input.data()));
        sections.push_back(fuzz::sectionOf(input.first(length), !isDamaged));
        input = input.subspan(length);
    }
    return sections;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const auto sections = sectionsIn({data, size});
    const auto driver = test::ScriptedDriver::make();
    driver->duringCall = [&](std::string_view operation, int /*time*/) {
        if (operation != "ReadTables")
            return;
        driver->air.clear();
        for (const TableRequest& request : driver->batches.back())
            for (const test::Bytes& section : sections)
                if (isWanted(request, section))
                    driver
                        ->air[{request.PID, request.table_id,
                               request.match_table_id_extension != 0 ? request.table_id_extension
                                                                     : -1}]
                        .push_back(section);
    };
    NetworkMap model;
    const std::atomic<bool> cancelled = false;
    Reader(static_cast<IDriverInfo*>(driver.get()), cancelled, TableSelection::fixed(kAllTables),
           IncompleteStreams::Store)
        .ReadCurrentTransponder(model);

    std::vector<ValueRow> rows;
    for (TreeWalk walk(model, {}); walk.next();) {
        const std::string label = walk.node().label();
        fuzz::require(asOneLine(label) == label);
        fillRows(walk.node(), rows);
        for (const ValueRow& row : rows)
            fuzz::require(asOneLine(row.data) == row.data);
        const SectionPart part = walk.node().sectionPart();
        fuzz::require(part.offset + part.size <= part.section.size());
    }
    return 0;
}
