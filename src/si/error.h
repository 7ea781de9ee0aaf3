#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace lib13818 {

/// The one exception of the SI library.
class error : public std::exception { // NOLINT(readability-identifier-naming)
public:
    /// A failure with a message only: code -1.
    explicit error(std::string message) : message_(std::move(message)) {}
    error(int errorCode, std::string message) : code(errorCode), message_(std::move(message)) {}
    /// The same, at a byte that is known.
    error(int errorCode, std::string message, const uint8_t* reached)
        : code(errorCode)
        , place(reached)
        , message_(std::move(message))
    {
    }
    /// A malformed header: the byte whose bits failed, no message.
    error(int errorCode, const uint8_t* where) : code(errorCode), position(where), place(where) {}

    const char* what() const noexcept override { return message_.c_str(); }

    int code = -1;
    /// The byte whose bits failed a header check, inside the caller's section; null otherwise.
    const uint8_t* position = nullptr;
    /// The byte at which decoding stopped, inside the section; null when it is not known.
    const uint8_t* place = nullptr;

private:
    std::string message_;
};

/// The codes that errors carry beside -1, "a message says it".
constexpr int kMalformedHeader = 2;
constexpr int kBadContent = 3;

/// What a section or entry throws that is too short for its fixed fields.
inline constexpr const char* kTooLittleData = "too little data";
/// What a loop throws that does not end where its length says.
inline constexpr const char* kStartEndMismatch = "descriptor start end mismatch";
/// What a descriptor throws whose length does not fit its records.
inline constexpr const char* kLengthMismatch = "descriptor length mismatch";

} // namespace lib13818
