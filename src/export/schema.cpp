#include "export/schema.h"

#include <algorithm>
#include <array>

namespace tessaview {

namespace {

constexpr std::array<std::string_view, 6> kTables{"tb_network", "tb_transponder", "tb_service",
                                                  "tb_audio",   "tb_ca_ecm",      "tb_ca_emm"};

// clang-format off
constexpr std::array kSchema{
    SchemaRow{"tb_network", "NID", kIntegerColumn, 0, false},
    SchemaRow{"tb_network", "NETWORK_NAME", kTextColumn, 255, false},
    SchemaRow{"tb_network", "DISQ", kIntegerColumn, 0, false},
    SchemaRow{"tb_network", "SWITCH12", kIntegerColumn, 0, false},
    SchemaRow{"tb_transponder", "TRANSPONDER_ID", kIntegerColumn, 0, true},
    SchemaRow{"tb_transponder", "NID", kIntegerColumn, 0, false},
    SchemaRow{"tb_transponder", "TID", kIntegerColumn, 0, false},
    SchemaRow{"tb_transponder", "FREQUENCY", kIntegerColumn, 0, false},
    SchemaRow{"tb_transponder", "POLARIZATION", kIntegerColumn, 0, false},
    SchemaRow{"tb_transponder", "SYMBOLRATE", kIntegerColumn, 0, false},
    SchemaRow{"tb_transponder", "FEC", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "SERVICE_ID", kIntegerColumn, 0, true},
    SchemaRow{"tb_service", "TRANSPONDER_ID", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "SID", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "SERVICENAME", kTextColumn, 50, false},
    SchemaRow{"tb_service", "PROVIDERNAME", kTextColumn, 50, false},
    SchemaRow{"tb_service", "TYPE", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "FREE_CA", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "EIT_SCHEDULE", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "EIT_PRESENT_FOLLOWING", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "VPID", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "APID", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "PCR", kIntegerColumn, 0, false},
    SchemaRow{"tb_service", "PMT", kIntegerColumn, 0, false},
    SchemaRow{"tb_audio", "AUDIO_ID", kIntegerColumn, 0, true},
    SchemaRow{"tb_audio", "SERVICE_ID", kIntegerColumn, 0, false},
    SchemaRow{"tb_audio", "APID", kIntegerColumn, 0, false},
    SchemaRow{"tb_audio", "LANGUAGE", kTextColumn, 50, false},
    SchemaRow{"tb_ca_ecm", "CAECM_ID", kIntegerColumn, 0, true},
    SchemaRow{"tb_ca_ecm", "SERVICE_ID", kIntegerColumn, 0, false},
    SchemaRow{"tb_ca_ecm", "SYSTEM_ID", kIntegerColumn, 0, false},
    SchemaRow{"tb_ca_ecm", "CAPROVIDER_NAME", kTextColumn, 255, false},
    SchemaRow{"tb_ca_ecm", "CA_PID", kIntegerColumn, 0, false},
    SchemaRow{"tb_ca_ecm", "PRIVATEBYTES", kTextColumn, 255, false},
    SchemaRow{"tb_ca_emm", "CAEMM_ID", kIntegerColumn, 0, true},
    SchemaRow{"tb_ca_emm", "TRANSPONDER_ID", kIntegerColumn, 0, false},
    SchemaRow{"tb_ca_emm", "SYSTEM_ID", kIntegerColumn, 0, false},
    SchemaRow{"tb_ca_emm", "CAPROVIDER_NAME", kTextColumn, 255, false},
    SchemaRow{"tb_ca_emm", "CA_PID", kIntegerColumn, 0, false},
    SchemaRow{"tb_ca_emm", "PRIVATEBYTES", kTextColumn, 255, false},
};

constexpr std::array kKeys{
    SchemaKey{"NID", KeyKind::Primary, "tb_network", "NID"},
    SchemaKey{"TRANSPONDER", KeyKind::Foreign, "tb_transponder", "NID", "tb_network", "NID"},
    SchemaKey{"NET_TRANSPONDER", KeyKind::Primary, "tb_transponder", "NID, TID"},
    SchemaKey{"TRANSPONDER_ID", KeyKind::Unique, "tb_transponder", "TRANSPONDER_ID"},
    SchemaKey{"TB_SERVICE", KeyKind::Foreign, "tb_service", "TRANSPONDER_ID", "tb_transponder", "TRANSPONDER_ID"},
    SchemaKey{"SID_TRANSPONDER", KeyKind::Primary, "tb_service", "TRANSPONDER_ID, SID"},
    SchemaKey{"SERVICE_ID", KeyKind::Unique, "tb_service", "SERVICE_ID"},
    SchemaKey{"AUDIO", KeyKind::Foreign, "tb_audio", "SERVICE_ID", "tb_service", "SERVICE_ID"},
    SchemaKey{"AUDIO_ID", KeyKind::Primary, "tb_audio", "AUDIO_ID"},
    SchemaKey{"CA_ECM", KeyKind::Foreign, "tb_ca_ecm", "SERVICE_ID", "tb_service", "SERVICE_ID"},
    SchemaKey{"CAECM_ID", KeyKind::Primary, "tb_ca_ecm", "CAECM_ID"},
    SchemaKey{"CA_EMM", KeyKind::Foreign, "tb_ca_emm", "TRANSPONDER_ID", "tb_transponder", "TRANSPONDER_ID"},
    SchemaKey{"CAEMM_ID", KeyKind::Primary, "tb_ca_emm", "CAEMM_ID"},
};

constexpr std::array kQueries{
    StoredQuery{"service_list",
        "SELECT tb_network.NID, tb_transponder.TID, tb_service.SID, tb_network.NETWORK_NAME, "
        "tb_service.SERVICENAME, tb_service.PROVIDERNAME, tb_service.TYPE, tb_service.VPID, "
        "tb_service.APID, tb_service.PCR, tb_service.PMT, tb_transponder.FREQUENCY, "
        "tb_transponder.POLARIZATION, tb_transponder.SYMBOLRATE, tb_transponder.FEC, "
        "tb_network.DISQ, tb_service.FREE_CA FROM tb_network INNER JOIN (tb_transponder INNER "
        "JOIN tb_service ON tb_transponder.TRANSPONDER_ID = tb_service.TRANSPONDER_ID) ON "
        "tb_network.NID = tb_transponder.NID;"},
    StoredQuery{"ecm_list",
        "SELECT tb_service.SERVICENAME, tb_service.PROVIDERNAME, tb_ca_ecm.SYSTEM_ID, "
        "tb_ca_ecm.CAPROVIDER_NAME, tb_ca_ecm.CA_PID, tb_ca_ecm.PRIVATEBYTES FROM tb_service "
        "INNER JOIN tb_ca_ecm ON tb_service.SERVICE_ID = tb_ca_ecm.SERVICE_ID;"},
};
// clang-format on

/// Appends with a separator before all but the first.
void appendListed(std::string& list, const std::string& element)
{
    if (!list.empty())
        list += ", ";
    list += element;
}

std::string_view autoColumnOf(std::string_view table)
{
    for (const SchemaRow& row : columnsOf(table))
        if (row.isAutoIncrement)
            return row.column;
    return {};
}

/// The key that consists of this column alone and makes it unique.
const SchemaKey& keyOn(const SchemaRow& row)
{
    return *std::find_if(kKeys.begin(), kKeys.end(), [&](const SchemaKey& key) {
        return key.kind != KeyKind::Foreign && key.table == row.table && key.columns == row.column;
    });
}

std::string columnDefinition(const SchemaRow& row)
{
    const std::string name(row.column);
    // SQLite counts up only a primary key, so that is what the column is, whatever its key's kind.
    if (row.isAutoIncrement)
        return name + " INTEGER CONSTRAINT " + std::string(keyOn(row).name) +
               " PRIMARY KEY AUTOINCREMENT";
    if (row.type == kIntegerColumn)
        return name + " INTEGER NOT NULL";
    const std::string size = std::to_string(row.size);
    return name + " VARCHAR(" + size + ") NOT NULL CHECK (length(" + name + ") <= " + size + ")";
}

std::string keyDefinition(const SchemaKey& key)
{
    std::string text = "CONSTRAINT " + std::string(key.name);
    if (key.kind == KeyKind::Foreign)
        text += " FOREIGN KEY";
    else if (key.kind == KeyKind::Primary && autoColumnOf(key.table).empty())
        text += " PRIMARY KEY";
    else
        text += " UNIQUE";
    text += " (" + std::string(key.columns) + ")";
    if (key.kind == KeyKind::Foreign)
        text += " REFERENCES " + std::string(key.referencedTable) + " (" +
                std::string(key.referencedColumn) + ")";
    return text;
}

std::string tableStatement(std::string_view table)
{
    std::string body;
    for (const SchemaRow& row : columnsOf(table))
        appendListed(body, columnDefinition(row));
    for (const SchemaKey& key : kKeys)
        if (key.table == table && key.columns != autoColumnOf(table))
            appendListed(body, keyDefinition(key));
    return "CREATE TABLE " + std::string(table) + " (" + body + ");\n";
}

/// A foreign key needs an index unless a key that starts with its column has one.
bool needsIndex(const SchemaKey& foreign)
{
    return std::none_of(kKeys.begin(), kKeys.end(), [&](const SchemaKey& key) {
        return key.kind != KeyKind::Foreign && key.table == foreign.table &&
               key.columns.substr(0, key.columns.find(',')) == foreign.columns;
    });
}

} // namespace

std::span<const SchemaRow> columnsOf(std::string_view table)
{
    const auto isOfTable = [&](const SchemaRow& row) { return row.table == table; };
    const auto* const first = std::find_if(kSchema.begin(), kSchema.end(), isOfTable);
    return {first, std::find_if_not(first, kSchema.end(), isOfTable)};
}

std::string schemaStatements()
{
    std::string sql;
    for (const std::string_view table : kTables)
        sql += tableStatement(table);
    for (const SchemaKey& key : kKeys)
        if (key.kind == KeyKind::Foreign && needsIndex(key))
            sql += "CREATE INDEX " + std::string(key.name) + " ON " + std::string(key.table) +
                   " (" + std::string(key.columns) + ");\n";
    for (const StoredQuery& query : kQueries)
        sql +=
            "CREATE VIEW " + std::string(query.name) + " AS " + std::string(query.statement) + "\n";
    return sql;
}

std::string insertStatement(std::string_view table)
{
    std::string columns;
    std::string parameters;
    for (const SchemaRow& row : columnsOf(table)) {
        if (row.isAutoIncrement)
            continue;
        appendListed(columns, std::string(row.column));
        appendListed(parameters, "?");
    }
    return "INSERT INTO " + std::string(table) + " (" + columns + ") VALUES (" + parameters + ")";
}

} // namespace tessaview
