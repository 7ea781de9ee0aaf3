#pragma once

#include <cstdint>

namespace tessaview {

/// What every operation across the component boundary returns: negative is failure, zero and
/// above success. Callers test only the sign and report the value.
using Status = std::int32_t;

constexpr bool failed(Status status)
{
    return status < 0;
}

/// The value as the "%#x" and "%08X" of messages print it.
constexpr unsigned statusCode(Status status)
{
    return static_cast<unsigned>(status);
}

namespace status {
constexpr Status kOk = 0;
constexpr Status kFalse = 1;
constexpr Status kNotImplemented = static_cast<Status>(0x80004001);
constexpr Status kNoInterface = static_cast<Status>(0x80004002);
constexpr Status kNullPointer = static_cast<Status>(0x80004003);
constexpr Status kFail = static_cast<Status>(0x80004005);
constexpr Status kUnexpected = static_cast<Status>(0x8000FFFF);
constexpr Status kClassNotRegistered = static_cast<Status>(0x80040154);
/// The library of a class could not be loaded.
constexpr Status kLibraryNotFound = static_cast<Status>(0x8007007E);
constexpr Status kAccessDenied = static_cast<Status>(0x80070005);
constexpr Status kOutOfMemory = static_cast<Status>(0x8007000E);
constexpr Status kNotReady = static_cast<Status>(0x80070015);
/// A file is there, but it does not hold what it should.
constexpr Status kInvalidData = static_cast<Status>(0x8007000D);
constexpr Status kInvalidArgument = static_cast<Status>(0x80070057);
constexpr Status kAlreadyExists = static_cast<Status>(0x800700B7);
constexpr Status kNotFound = static_cast<Status>(0x80070490);
/// The call was cut short.
constexpr Status kCancelled = static_cast<Status>(0x800704C7);
} // namespace status

} // namespace tessaview
