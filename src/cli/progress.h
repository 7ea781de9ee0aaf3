#pragma once

#include "acquisition/scan_progress.h"
#include "log/output.h"

#include <array>
#include <cstddef>
#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace tessaview {

/// One line below the others on a terminal, which is written anew and gone in the end; elsewhere
/// nothing.
class StatusLine {
public:
    /// `columns` is the width of the terminal; 0: `out` is none.
    StatusLine(std::ostream& out, std::size_t columns) : out_(out), columns_(columns) {}
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine();

    bool isTerminal() const { return columns_ > 0; }
    bool isShown() const { return isShown_; }
    void show(const std::string& text);
    void erase();

private:
    std::ostream& out_;
    std::size_t columns_;
    bool isShown_ = false;
};

/// Shows a scan while it runs: the lines for the user, and how far it has come. On a terminal that
/// is one line below the others, which is written anew and gone in the end; elsewhere it is a line
/// each. Installed as the output sink as long as it lives.
class ProgressDisplay final : public OutputSink, public ScanProgress {
public:
    /// `columns` is the width of the terminal; 0: `out` is none.
    ProgressDisplay(std::ostream& out, std::size_t columns);
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;
    ~ProgressDisplay();

    void print(std::string_view line) override;
    void clear() override {}
    void reached(ScanLevel level, std::size_t number, std::size_t total) override;
    void hasRead(std::optional<unsigned> percent) override;
    void askForSatellite() override;

private:
    void printLine(std::string_view line);
    void drawStatus();

    std::mutex mutex_; ///< lines and percentages come from different threads
    std::ostream& out_;
    StatusLine status_;
    std::array<std::string, kScanLevelCount> levels_;
    std::string read_; ///< how much of the stream
};

/// A scan that nobody watches: only what goes wrong is told. Installed as the output sink as long
/// as it lives.
class ProblemsOnly final : public OutputSink, public ScanProgress {
public:
    explicit ProblemsOnly(std::ostream& out);
    ProblemsOnly(const ProblemsOnly&) = delete;
    ProblemsOnly& operator=(const ProblemsOnly&) = delete;
    ~ProblemsOnly();

    void print(std::string_view /*line*/) override {}
    void printProblem(std::string_view line) override;
    void clear() override {}
    void reached(ScanLevel, std::size_t, std::size_t) override {}
    void hasRead(std::optional<unsigned>) override {}
    void askForSatellite() override {}

private:
    std::ostream& out_;
};

/// The width of the terminal that standard error is; 0 when it is none.
std::size_t standardErrorColumns();

} // namespace tessaview
