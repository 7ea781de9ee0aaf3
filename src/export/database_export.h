#pragma once

#include "charset/charset_policy.h"
#include "export/database_error.h"
#include "model/network_map.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace tessaview {

/// Creates a database file with its tables, keys and stored queries and no rows. A file that is
/// there already is an error and stays as it is; after any other failure no file is left.
/// Throws DatabaseError.
void CreateDatabase(const std::filesystem::path& file);

/// Writes the model into a database of CreateDatabase that has no rows yet. Throws DatabaseError;
/// the rows written before that stay. Names are read by the rule of their network.
void ExportModel(const NetworkMap& model, const std::filesystem::path& file,
                 const CharsetPolicy& charsets = {});

/// Both, one after the other: for a worker, since it throws nothing. Gives what went wrong.
std::optional<DatabaseError> exportDatabase(const NetworkMap& model,
                                            const std::filesystem::path& file,
                                            const CharsetPolicy& charsets = {}) noexcept;

/// Stands for a PID that there is not.
constexpr int kNoPid = 0x1FFF;

/// The PID of the first stream of stream_type 1 or 2; kNoPid without one, or without a PMT.
int FirstVideoPid(const lib13818::Pmt* pmt);
/// The same for stream_type 3 or 4.
int FirstAudioPid(const lib13818::Pmt* pmt);

/// The first 85 bytes as "0A 1B 2C".
std::string FormatPrivateBytes(std::span<const std::uint8_t> bytes);

} // namespace tessaview
