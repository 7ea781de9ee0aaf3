#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tessaview {

/// How much of a disk stays free when a stream is written to it, in bytes.
constexpr std::uintmax_t kDiskReserve = std::uintmax_t{256} << 20;

/// What the file system of a folder has left, in bytes. Throws std::runtime_error.
std::uintmax_t freeSpace(const std::filesystem::path& folder);

/// "12.3 MB" and the like.
std::string sizeText(std::uintmax_t bytes);

} // namespace tessaview
