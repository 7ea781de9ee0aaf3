#pragma once

#include "log/output.h"
#include "tests/support/temporary_folder.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Lines = std::vector<std::string>;

/// Records what is printed for the user and what is logged for as long as it lives.
class Recorder : public tessaview::OutputSink {
public:
    Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder();

    void print(std::string_view line) override;
    void clear() override;

    Lines printed() const;
    /// The lines of the log, each behind its level: "<4> - scan network".
    Lines logged() const;

private:
    mutable std::mutex mutex_;
    Lines lines_;
    TemporaryFolder folder_;
};

} // namespace test
