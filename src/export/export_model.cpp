#include "charset/display_text.h"
#include "export/database.h"
#include "export/database_export.h"
#include "export/table_writer.h"
#include "export/transponder_export.h"
#include "si/texts/registries.h"

#include <algorithm>
#include <sqlite3.h>

namespace tessaview {

namespace {

/// The user_version of a database that an export has come to the end of.
constexpr int kComplete = 1;

void writeNetwork(Database& database, TableWriter& networks, const Network& network)
{
    const std::string name =
        registryText(lib13818::originalNetworkName(network.original_network_id));
    Transaction transaction(database);
    networks.add({{"NID", network.original_network_id},
                  {"NETWORK_NAME", name},
                  {"DISQ", 0}, // no one sets a switch
                  {"SWITCH12", 0}});
    transaction.commit();
}

/// An incomplete stream has no certain identifiers, and a network of nothing else is left out.
bool isExported(const Network& network)
{
    return std::any_of(network.transponders.begin(), network.transponders.end(),
                       [](const auto& entry) { return entry.second.needed.areThere(); });
}

} // namespace

void ExportModel(const NetworkMap& model, const std::filesystem::path& file,
                 const CharsetPolicy& charsets)
{
    Database database(file);
    TableWriter networks(database, "tb_network");
    TransponderExport transponders(database, charsets);
    for (const auto& [id, network] : model) {
        if (!isExported(network))
            continue;
        writeNetwork(database, networks, network);
        for (const auto& [stream, transponder] : network.transponders) {
            if (!transponder.needed.areThere())
                continue;
            // A full disk takes back an open transaction: one for each transport stream loses few.
            Transaction transaction(database);
            transponders.write(network, transponder);
            transaction.commit();
        }
    }
    database.synchronize(kComplete);
}

std::optional<DatabaseError> exportDatabase(const NetworkMap& model,
                                            const std::filesystem::path& file,
                                            const CharsetPolicy& charsets) noexcept
try {
    CreateDatabase(file);
    ExportModel(model, file, charsets);
    return std::nullopt;
} catch (const DatabaseError& failure) {
    return failure;
} catch (const std::bad_alloc&) {
    return DatabaseError(SQLITE_NOMEM, "There is not enough memory.", "");
} catch (const std::exception& failure) {
    return DatabaseError(SQLITE_ERROR, failure.what(), "");
}

} // namespace tessaview
