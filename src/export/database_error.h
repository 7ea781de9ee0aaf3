#pragma once

#include "platform/format.h"

#include <exception>
#include <string>
#include <utility>

namespace tessaview {

/// What went wrong with a database, in words for the user.
class DatabaseError : public std::exception {
public:
    /// `status` is SQLite's extended result code, `source` who reports it; texts are UTF-8.
    DatabaseError(int status, std::string description, std::string source)
        : status_(status)
        , description_(std::move(description))
        , source_(std::move(source))
        , text_(formatted("Error: %#x\nDesc: %s\nSource: %s", static_cast<unsigned>(status_),
                          description_.c_str(), source_.c_str()))
    {
    }

    int status() const { return status_; }
    const std::string& description() const { return description_; }
    const std::string& source() const { return source_; }
    /// The three of them, a line each.
    const char* what() const noexcept override { return text_.c_str(); }

private:
    int status_;
    std::string description_;
    std::string source_;
    std::string text_;
};

} // namespace tessaview
