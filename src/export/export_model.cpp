#include "charset/display_text.h"
#include "export/database.h"
#include "export/database_export.h"
#include "export/table_writer.h"
#include "export/transponder_export.h"
#include "si/texts/registries.h"

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

} // namespace

void ExportModel(const NetworkMap& model, const std::filesystem::path& file,
                 const CharsetPolicy& charsets)
{
    Database database(file);
    TableWriter networks(database, "tb_network");
    TransponderExport transponders(database, charsets);
    for (const auto& [id, network] : model) {
        writeNetwork(database, networks, network);
        for (const auto& [stream, transponder] : network.transponders) {
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
