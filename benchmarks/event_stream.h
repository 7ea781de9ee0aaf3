#pragma once

#include <filesystem>

/// Writes the stream that the figures of the whole road are taken with: a schedule of events with
/// four descriptors each, every section sent twice, behind the tables that a transport stream needs
/// to be stored. Twenty events of 191 bytes fill a section. Throws std::ios_base::failure.
void writeEventStream(const std::filesystem::path& path, unsigned events, unsigned perSection = 20);
