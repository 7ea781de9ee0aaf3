#include "cli/options.h"

#include "acquisition/table_selection.h"
#include "cli/complain.h"
#include "log/log_line.h"
#include "platform/build_info.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <map>
#include <sstream>

namespace tessaview {

namespace {

const std::map<std::string, OutputFormat> kFormats{{"tree", OutputFormat::Tree},
                                                   {"values", OutputFormat::Values},
                                                   {"json", OutputFormat::Json},
                                                   {"none", OutputFormat::None}};

const std::map<std::string, ScanMode> kModes{{"current", ScanMode::CurrentTransponder},
                                             {"nit", ScanMode::CurrentNit},
                                             {"satellite", ScanMode::SingleSatellite},
                                             {"all", ScanMode::AllSatellites}};

constexpr const char* kFooter = R"(
Tables are a comma-separated list of: pat, cat, pmt, bat, nit, nit-other, sdt, sdt-other, eit-pf,
eit-pf-other, eit-sched, eit-sched-other, tdt, tot, rst; or 'all', 'default', or a bit mask such as
0x041B. PAT, NIT actual and SDT actual are read whatever is chosen.

A scan tunes from stream to stream: 'nit' through the network that the current stream describes,
'satellite' through the networks behind every transponder that the satellite list has for the
satellite, 'all' through those of all selected satellites. Ctrl+C ends it with what was read.

The parameters to tune to are those of the driver's kind of tuner:
  satellite    "12187.5 H 27500 3/4 S2 8PSK 0.35": MHz, polarization H, V, L or R, kS/s; and, if
               need be, code rate, S or S2, QPSK or 8PSK, roll-off. --satellite tells where it is.
  cable        "474 6900 64QAM": MHz, kS/s; and, if need be, the modulation
  terrestrial  "474 8": MHz; and, if it is not 8, the bandwidth in MHz

Exit status: 0 at least one transport stream was stored, 1 none was, 2 wrong usage, 3 the export
to a database failed, 4 one was stored but reading failed on the way, so more may be missing.)";

/// A selection that CLI11 can check and report.
std::string checkTables(const std::string& text)
{
    std::string problem;
    static_cast<void>(parseTableList(text, problem));
    return problem;
}

std::string checkCharset(const std::string& text)
{
    std::string problem;
    static_cast<void>(parseCharsetRule(text, problem));
    return problem;
}

constexpr const char* kCharsetHelp = R"(

A character table is used for texts that do not select one themselves, or with ',always' for all
texts. It may be for one network, named by its original_network_id, and the option be repeated:
--charset iso-8859-2 --charset 0x0085=iso-8859-9,always. 'auto' goes by EN 300 468. Tables:
)";

std::string charsetHelp()
{
    std::string text = kCharsetHelp;
    for (const CharacterTable& table : selectableTables())
        text.append("  ")
            .append(table.key)
            .append(14 - std::string(table.key).size(), ' ')
            .append(std::string(table.name) + " (" + table.use + ")\n");
    return text;
}

CharsetPolicy charsetPolicy(const std::vector<std::string>& rules)
{
    CharsetPolicy policy;
    std::string problem;
    for (const std::string& text : rules)
        if (const auto rule = parseCharsetRule(text, problem))
            policy.set(*rule);
    return policy;
}

} // namespace

ParsedOptions parseOptions(int argc, const char* const* argv)
{
    Options options;
    std::string format = "tree";
    std::string tables = "all";
    std::string mode;
    std::vector<std::string> charsets;

    CLI::App app("Shows the DVB service information of a multiplex.", "tessaview3-scan");
    app.footer(kFooter + charsetHelp());
    app.set_version_flag("--version", std::string("tessaview3-scan ") + kVersionText);
    app.add_option("CAPTURE", options.captures,
                   "Captured transport streams, or folders of them; all are read");
    app.add_flag("--incomplete", options.incomplete,
                 "Show what there is of streams without PAT, NIT or SDT, too");
    app.add_option("--driver", options.driver, "Use this driver")->option_text("NAME|CLSID");
    app.add_flag("--list-drivers", options.listDrivers, "List the installed drivers");
    app.add_option("--mode", mode,
                   "What to read: 'current', the stream the tuner is set to, which is the default "
                   "but for captures, of which all are read")
        ->check(CLI::IsMember(kModes))
        ->option_text("current|nit|satellite|all");
    app.add_option("--satellite", options.satellite,
                   "The satellite to scan, or whose NIT it is, or to tune to")
        ->option_text("NAME");
    CLI::Option* const tune =
        app.add_option("--tune", options.tune, "Set the tuner to these parameters first")
            ->option_text("PARAMETERS");
    app.add_option("--tables", tables, "The tables to read, default 'all'")
        ->check(CLI::Validator(checkTables, "", "tables"))
        ->option_text("all|default|LIST|MASK");
    app.add_option("--format", format, "How to print it, default 'tree'")
        ->check(CLI::IsMember(kFormats))
        ->option_text("tree|values|json|none");
    app.add_option("--charset", charsets, "Read texts with this character table, default 'auto'")
        ->check(CLI::Validator(checkCharset, "", "charset"))
        ->allow_extra_args(false)
        ->option_text("[NETWORK=]TABLE[,always]");
    app.add_option("--export-db", options.exportDb,
                   "Export what was read into this new SQLite database, too")
        ->option_text("FILE");
    app.add_option("--log", options.log, "Write the log to this file instead of the usual one")
        ->option_text("FILE");
    app.add_flag("--quiet", options.quiet, "No progress lines on standard error");
    app.add_option("--import-scan-table", options.scanTables,
                   "Add the transponders of initial tuning files to the satellite list, those of "
                   "a file to the satellite it is named after")
        ->option_text("FILE...");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        const bool isAnswer = e.get_exit_code() == 0;
        std::ostringstream complaint; // it repeats what it does not know
        app.exit(e, std::cout, complaint);
        std::cerr << asLines(complaint.str());
        return {.options = std::nullopt, .exitStatus = isAnswer ? kExitStored : kExitWrongUsage};
    }
    options.format = kFormats.at(format);
    if (!mode.empty())
        options.mode = kModes.at(mode);
    if (tune->count() > 0 && options.tune.empty()) {
        complain("--tune needs parameters, such as \"12187.5 H 27500\"; --help tells more");
        return {.options = std::nullopt, .exitStatus = kExitWrongUsage};
    }
    if (!options.satellite.empty() && options.tune.empty() &&
        options.mode != ScanMode::CurrentNit && options.mode != ScanMode::SingleSatellite) {
        complain("--satellite goes with --mode nit, --mode satellite and --tune");
        return {.options = std::nullopt, .exitStatus = kExitWrongUsage};
    }
    std::string problem;
    options.tables = parseTableList(tables, problem);
    options.charsets = charsetPolicy(charsets);
    return {.options = options};
}

} // namespace tessaview
