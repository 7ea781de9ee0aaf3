#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

extern "C" {

/// A string in the form in which strings cross interfaces: UTF-16 from task memory, its length in
/// bytes as 32 bits before the first unit, a zero unit after the last. Null when there is no
/// memory or the length does not fit. `text` may be null, for a string to be filled in.
__attribute__((visibility("default"))) char16_t* TessaviewBstrAlloc(const char16_t* text,
                                                                    std::size_t units);

/// Releases a string of `TessaviewBstrAlloc`; null, the empty string, is allowed.
__attribute__((visibility("default"))) void TessaviewBstrFree(char16_t* bstr);

/// The length in UTF-16 units; 0 for null.
__attribute__((visibility("default"))) std::size_t TessaviewBstrLength(const char16_t* bstr);

} // extern "C"

namespace tessaview {

/// Owns one length-prefixed wide string. An input string stays the caller's (`get`), an output
/// string is received with `put` and released with this object.
class Bstr {
public:
    Bstr() = default;
    /// Throws std::bad_alloc.
    explicit Bstr(std::u16string_view text);
    /// From UTF-8; ill-formed bytes become U+FFFD. Throws std::bad_alloc.
    explicit Bstr(std::string_view utf8);
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept
    {
        std::swap(text_, other.text_);
        return *this;
    }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { TessaviewBstrFree(text_); }

    char16_t* get() const { return text_; }
    /// For an out-parameter; what was held before is released.
    char16_t** put();
    /// Gives the string away, to an out-parameter of our own.
    char16_t* release() { return std::exchange(text_, nullptr); }

    std::u16string_view view() const { return {text_, TessaviewBstrLength(text_)}; }
    std::string utf8() const;

private:
    char16_t* text_ = nullptr;
};

/// UTF-8 of a wide string; an unpaired surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
/// UTF-16 of a UTF-8 text; ill-formed bytes become U+FFFD.
std::u16string toUtf16(std::string_view utf8);
/// The UTF-8 of a received `BSTR` that stays the caller's; "" for null.
std::string bstrToUtf8(const char16_t* bstr);

} // namespace tessaview
