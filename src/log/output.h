#pragma once

#include <string_view>

namespace tessaview {

/// Shows the lines that are meant for the user: the output list of the window, standard error of
/// the shell tool. Called on the thread that prints, on several at a time, so that one which waits
/// for the window's thread does not keep that thread from printing. Must not print itself.
struct OutputSink {
    virtual void print(std::string_view line) = 0;
    /// A line about something that went wrong; a sink that shows nothing else still shows these.
    virtual void printProblem(std::string_view line) { print(line); }
    virtual void clear() = 0;

protected:
    ~OutputSink() = default;
};

/// Prints one line for the user by the printf rules, of any length. Any thread may call it;
/// without a sink the line is dropped.
[[gnu::format(printf, 1, 2)]] void OutputPrint(const char* format, ...);

/// The same for a line that tells of something wrong.
[[gnu::format(printf, 1, 2)]] void OutputProblem(const char* format, ...);

/// Empties the list of lines.
void OutputClear();

/// Installs the sink that gets the lines from now on; null: none. When this returns, no call to
/// the former sink is running or will come; so nobody may call it whom such a call waits for.
void installOutputSink(OutputSink* sink);

} // namespace tessaview
