#pragma once

#include "tests/support/temporary_folder.h"
#include "tools/multiplex/bytes_writer.h"

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace test {

/// What a run of the shell tool left behind.
struct Outcome {
    int status = -1; ///< the exit status, or the signal that ended it, negated
    std::string out;
    std::string err;
};

/// The shell tool as a user finds it: the real program with its real drivers, in a home of its own.
class ShellTool {
public:
    ShellTool();

    Outcome run(const std::vector<std::string>& arguments) const;
    /// The same with standard output going to a file or device.
    Outcome runInto(const std::string& output, const std::vector<std::string>& arguments) const;
    /// Presses Ctrl+C as soon as a text has come on standard error, of which no more than a pipe
    /// holds is written before that, and then again and again if asked to.
    Outcome runInterrupted(const std::string& text, const std::vector<std::string>& arguments,
                           bool again = false) const;

    /// Writes a file into the current folder of the runs and gives its path.
    std::string file(const std::string& name, const Bytes& content) const;
    const std::filesystem::path& folder() const { return folder_.path(); }

private:
    /// Standard error goes to a file or to a descriptor.
    template <class ErrorOutput>
    pid_t start(const std::string& out, const ErrorOutput& err,
                const std::vector<std::string>& arguments) const;

    TemporaryFolder folder_;
    std::vector<std::string> environment_;
};

} // namespace test
