#pragma once

#include "tree/fields/field_text.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace tessaview {

/// The conversions of a printf format, such as "d", "ld" or "s", as far as the fields use them.
struct Conversions {
    constexpr explicit Conversions(std::string_view format)
    {
        std::size_t at = 0;
        while ((at = format.find('%', at)) != std::string_view::npos) {
            const std::size_t end = format.find_first_of("dxXufs", at);
            if (end == std::string_view::npos)
                throw "a format ends within a conversion";
            (count == 0 ? first : second) = format[end];
            isLong = isLong || format[end - 1] == 'l';
            ++count;
            at = end + 1;
        }
    }

    int count = 0;
    char first = 0;
    char second = 0;
    bool isLong = false;
};

/// Marks of the fields that are not just a format and what it formats.
struct NotAvailable {};
struct BytesRow {};
struct PidRow {};
inline constexpr NotAvailable kNotAvailable; ///< a row that shows "N/A"
inline constexpr BytesRow kBytesRow;         ///< a row whose bytes show in the hex view
inline constexpr PidRow kPidRow;             ///< a row with the menu of a PID

/// One row of a `T`: its name, a format, and the member or function that gives what it formats.
/// A format that does not fit does not compile.
template <class T>
class Field {
public:
    using Bytes = lib13818::Bytes;
    /// What a format formats.
    using Value =
        std::variant<NotAvailable, int T::*, bool T::*, std::uint32_t T::*, double T::*,
                     lib13818::Code T::*, std::string_view T::*, lib13818::StrippedText T::*,
                     Bytes T::*, int (*)(const T&), double (*)(const T&), std::string (*)(const T&),
                     std::vector<std::uint8_t> (*)(const T&)>;
    /// The words behind a coded value.
    using Words = std::variant<std::monostate, const char* (*)(int), const char* (*)(std::uint32_t),
                               const char* (T::*)() const, std::string (*)(const T&)>;

    // Implicit: a field list is a list of braces.
    // NOLINTBEGIN(google-explicit-constructor)
    constexpr Field(std::string_view name, NotAvailable /*mark*/) : name_(name) {}
    constexpr Field(std::string_view name, BytesRow /*mark*/, Bytes T::*bytes)
        : name_(name)
        , value_(bytes)
    {
    }
    constexpr Field(std::string_view name, BytesRow /*mark*/,
                    std::vector<std::uint8_t> (*made)(const T&))
        : name_(name)
        , value_(made)
    {
    }
    constexpr Field(std::string_view name, const char* format, int T::*pid, PidRow /*mark*/)
        : name_(name)
        , format_(format)
        , value_(pid)
        , isPid_(true)
    {
        requireFit();
    }
    constexpr Field(std::string_view name, const char* format, Value value, Words words = {})
        : name_(name)
        , format_(format)
        , value_(value)
        , words_(words)
    {
        requireFit();
    }
    // NOLINTEND(google-explicit-constructor)

    /// A field with another tooltip than that of its character table.
    constexpr Field with(std::string (*remark)(const T&)) const
    {
        Field field = *this;
        field.remark_ = remark;
        return field;
    }

    /// Makes the row of an object.
    void fill(const NodeView& node, const T& object, ValueRow& row) const
    {
        row.name = name_;
        std::visit([&](const auto& value) { show(value, node, object, row); }, value_);
        if (remark_)
            row.remark = remark_(object);
    }

private:
    constexpr void requireFit() const
    {
        const Conversions conversions(format_);
        const bool hasWords = !std::holds_alternative<std::monostate>(words_);
        const bool isNumber =
            holdsOneOf<int T::*, bool T::*, std::uint32_t T::*, int (*)(const T&)>();
        const bool isReal = holdsOneOf<double T::*, double (*)(const T&)>();
        if (conversions.count != (hasWords ? 2 : 1) || (hasWords && conversions.second != 's'))
            throw "a format converts a value, and its words if it has any";
        if (conversions.isLong && !holdsOneOf<std::uint32_t T::*>())
            throw "only 32 bits without a sign are converted as long";
        if (std::string_view(isNumber ? "dxXu"
                             : isReal ? "f"
                                      : "s")
                .find(conversions.first) == std::string_view::npos)
            throw "a format does not fit the type of its member";
    }

    template <class... Alternatives>
    constexpr bool holdsOneOf() const
    {
        return (std::holds_alternative<Alternatives>(value_) || ...);
    }

    void show(NotAvailable /*mark*/, const NodeView& /*node*/, const T& /*object*/,
              ValueRow& row) const
    {
        row.data = "N/A";
    }

    template <class V>
    void show(V T::*member, const NodeView& node, const T& object, ValueRow& row) const
    {
        if constexpr (std::is_integral_v<V>)
            showNumber(static_cast<std::uint32_t>(object.*member), object, row);
        else if constexpr (std::is_floating_point_v<V>)
            row.data = realText(format_, object.*member);
        else if constexpr (std::is_same_v<V, Bytes>)
            fillBytes(object.*member, row);
        else
            fillText(object.*member, node, row);
    }

    template <class V>
    void show(V (*function)(const T&), const NodeView& /*node*/, const T& object,
              ValueRow& row) const
    {
        if constexpr (std::is_integral_v<V>)
            showNumber(static_cast<std::uint32_t>(function(object)), object, row);
        else if constexpr (std::is_floating_point_v<V>)
            row.data = realText(format_, function(object));
        else if constexpr (std::is_same_v<V, std::vector<std::uint8_t>>)
            fillBytes(function(object), row);
        else
            row.data = function(object);
    }

    void showNumber(std::uint32_t number, const T& object, ValueRow& row) const
    {
        row.data = numberText(format_, number, wordsOf(number, object).c_str());
        if (isPid_)
            fillPid(static_cast<int>(number), row);
    }

    std::string wordsOf(std::uint32_t number, const T& object) const
    {
        const auto* const ofInt = std::get_if<const char* (*)(int)>(&words_);
        const auto* const ofKey = std::get_if<const char* (*)(std::uint32_t)>(&words_);
        const auto* const ofObject = std::get_if<const char* (T::*)() const>(&words_);
        const auto* const made = std::get_if<std::string (*)(const T&)>(&words_);
        if (made)
            return (*made)(object);
        const char* const words = ofInt      ? (*ofInt)(static_cast<int>(number))
                                  : ofKey    ? (*ofKey)(number)
                                  : ofObject ? (object.**ofObject)()
                                             : "";
        return registryText(words);
    }

    std::string_view name_;
    const char* format_ = "";
    Value value_ = NotAvailable();
    Words words_ = {};
    bool isPid_ = false;
    std::string (*remark_)(const T&) = nullptr;
};

} // namespace tessaview
