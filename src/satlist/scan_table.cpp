#include "satlist/scan_table.h"

#include "platform/number.h"
#include "tuning/tuning.h"
#include "tuning/words.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tessaview {

namespace {

constexpr std::size_t kMostProblems = 100;
constexpr std::size_t kLongestQuote = 60;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // of UTF-8

struct Range {
    std::uint64_t least;
    std::uint64_t most;
};
constexpr Range kFrequencies{1'000'000, 100'000'000}; // kHz: 1 to 100 GHz
constexpr Range kSymbolRates{10'000, 1'000'000'000};  // symbols/s
constexpr Range kStreamIds{0, 255};

constexpr std::array<Word, 4> kPolarizations{
    {{"HORIZONTAL", 0}, {"VERTICAL", 1}, {"LEFT", 2}, {"RIGHT", 3}}};
// What the list has another value for than the codes have, or none, as for those of DVB-S2 alone.
constexpr std::array<Word, 9> kCodeRates{{{"AUTO", 0},
                                          {"NONE", 7},
                                          {"1/4", 0},
                                          {"1/3", 0},
                                          {"2/5", 0},
                                          {"3/5", 0},
                                          {"4/5", 0},
                                          {"6/7", 0},
                                          {"9/10", 0}}};
constexpr std::int32_t kNotGiven = ISatTransponderS2::kNotGiven;
constexpr std::array<Word, 5> kSatelliteSystems{
    {{"DVBS", 0}, {"DVBS2", 1}, {"S", 0}, {"S1", 0}, {"S2", 1}}};
constexpr std::array<Word, 9> kModulations{{{"QPSK", 1},
                                            {"PSK/8", 2},
                                            {"8PSK", 2},
                                            {"APSK/16", 3},
                                            {"16APSK", 3},
                                            {"APSK/32", 4},
                                            {"32APSK", 4},
                                            {"AUTO", kNotGiven},
                                            {"QAM/AUTO", kNotGiven}}};
constexpr std::array<Word, 4> kRollOffs{{{"35", 0}, {"25", 1}, {"20", 2}, {"AUTO", kNotGiven}}};
constexpr std::array<Word, 3> kPilots{{{"OFF", 0}, {"ON", 1}, {"AUTO", kNotGiven}}};
// What the lines of one channel each begin with for systems that are none of a satellite.
constexpr std::array<std::string_view, 5> kOtherLines{"A", "C", "C2", "T", "T2"};

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view withoutComment(std::string_view line)
{
    return trimmed(line.substr(0, line.find('#')));
}

/// Takes a word off the front; empty at the end.
std::string_view nextWord(std::string_view& text)
{
    text = trimmed(text);
    const auto* const end = std::find_if(text.begin(), text.end(), isBlank);
    const auto length = static_cast<std::size_t>(end - text.begin());
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

/// A text from the file as a message shows it: short and without control characters.
std::string quoted(std::string_view text)
{
    std::string shown(text.substr(0, kLongestQuote));
    for (char& c : shown)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            c = '?';
    return "'" + shown + (text.size() > kLongestQuote ? "...'" : "'");
}

std::optional<std::int32_t> numberIn(std::string_view text, const Range& range, unsigned divisor)
{
    const auto value = wholeNumber<std::uint64_t>(text);
    if (!value || *value < range.least || *value > range.most)
        return std::nullopt;
    return static_cast<std::int32_t>(*value / divisor);
}

std::optional<std::int32_t> polarizationOf(std::string_view word)
{
    const auto code = codeOf(word, kPolarizations);
    return code ? code : codeOf(word, kPolarizationWords);
}

std::optional<std::int32_t> codeRateOf(std::string_view word)
{
    const auto own = codeOf(word, kCodeRates);
    return own ? own : codeOf(word, kCodeRateWords);
}

/// A value of a channel and where it stands.
struct Property {
    std::string_view text;
    std::size_t line = 0;

    explicit operator bool() const { return line != 0; }
};

struct Channel {
    std::size_t line = 0; ///< where it begins; 0: there is none
    Property system;
    Property frequency;
    Property polarization;
    Property symbolRate;
    Property codeRate;
    Property modulation;
    Property rollOff;
    Property pilot;
    Property streamId;
};

class Parser {
public:
    ScanTable parse(std::string_view content)
    {
        if (content.find('\0') != std::string_view::npos) {
            report(1, "this is no text file");
            return std::move(table_);
        }
        while (!content.empty() && table_.problems.size() < kMostProblems) {
            const std::size_t end = std::min(content.find('\n'), content.size());
            ++line_;
            takeLine(trimmed(content.substr(0, end)));
            content.remove_prefix(std::min(end + 1, content.size()));
        }
        finishChannel();
        if (!content.empty())
            report(line_ + 1, "too much is wrong with this file; the rest of it was not read");
        reportOthers();
        return std::move(table_);
    }

private:
    void report(std::size_t line, std::string what)
    {
        table_.problems.push_back({line, std::move(what)});
    }

    void takeLine(std::string_view line)
    {
        if (line.starts_with('[')) {
            finishChannel();
            channel_.line = line_;
            if (line.find(']') == std::string_view::npos)
                report(line_, quoted(line) + " lacks its ']'");
            return;
        }
        line = withoutComment(line);
        if (line.empty())
            return;
        const std::size_t sign = line.find('=');
        if (sign != std::string_view::npos)
            takeProperty(trimmed(line.substr(0, sign)), trimmed(line.substr(sign + 1)));
        else
            takeChannelLine(line);
    }

    void takeProperty(std::string_view key, std::string_view value)
    {
        if (!channel_.line) {
            report(line_, quoted(key) + " stands before the first [CHANNEL]");
            return;
        }
        const std::array<std::pair<std::string_view, Property*>, 9> properties{
            {{"DELIVERY_SYSTEM", &channel_.system},
             {"FREQUENCY", &channel_.frequency},
             {"POLARIZATION", &channel_.polarization},
             {"SYMBOL_RATE", &channel_.symbolRate},
             {"INNER_FEC", &channel_.codeRate},
             {"MODULATION", &channel_.modulation},
             {"ROLLOFF", &channel_.rollOff},
             {"PILOT", &channel_.pilot},
             {"STREAM_ID", &channel_.streamId}}};
        for (const auto& [name, property] : properties)
            if (name == key)
                *property = {value, line_};
    }

    /// "S frequency polarization symbol-rate FEC", or S2 with roll-off, modulation and more after
    /// it, of which programs differ about the order.
    void takeChannelLine(std::string_view line)
    {
        finishChannel();
        const std::string_view system = nextWord(line);
        if (!codeOf(system, kSatelliteSystems) &&
            std::find(kOtherLines.begin(), kOtherLines.end(), system) == kOtherLines.end()) {
            report(line_, quoted(system) + " begins no channel");
            return;
        }
        channel_.line = line_;
        channel_.system = {system, line_};
        for (Property* property : {&channel_.frequency, &channel_.polarization,
                                   &channel_.symbolRate, &channel_.codeRate})
            if (const std::string_view word = nextWord(line); !word.empty())
                *property = {word, line_};
        for (auto word = nextWord(line); !word.empty(); word = nextWord(line))
            if (codeOf(word, kRollOffs))
                channel_.rollOff = {word, line_};
            else if (codeOf(word, kModulations))
                channel_.modulation = {word, line_};
        finishChannel();
    }

    void finishChannel()
    {
        const Channel channel = std::exchange(channel_, {});
        if (!channel.line)
            return;
        if (!channel.system) {
            report(channel.line, "the channel lacks its DELIVERY_SYSTEM");
        } else if (!codeOf(channel.system.text, kSatelliteSystems)) {
            if (others_++ == 0)
                firstOther_ = {channel.line, quoted(channel.system.text)};
        } else if (const auto entry = entryOf(channel)) {
            table_.transponders.push_back(*entry);
        }
    }

    /// The value that `read` gives for a property, or nothing and a problem.
    template <class Read>
    std::optional<std::int32_t> valueOfProperty(const Channel& channel, const Property& property,
                                                const char* name, const char* meaning, Read read)
    {
        if (!property) {
            report(channel.line, std::string("the channel lacks its ") + name);
            return std::nullopt;
        }
        const std::optional<std::int32_t> value = read(property.text);
        if (!value)
            report(property.line, quoted(property.text) + " is no " + meaning);
        return value;
    }

    /// The same for one that may be missing; a problem costs only the value.
    template <class Read>
    std::int32_t optionalValue(const Property& property, const char* meaning, Read read)
    {
        const std::optional<std::int32_t> value = property ? read(property.text) : kNotGiven;
        if (!value)
            report(property.line, quoted(property.text) + " is no " + meaning);
        return value.value_or(kNotGiven);
    }

    S2Parameters s2Of(const Channel& channel)
    {
        const auto oneOf = [](const auto& words) {
            return [&words](std::string_view text) { return codeOf(text, words); };
        };
        return {.system = *codeOf(channel.system.text, kSatelliteSystems),
                .modulation = optionalValue(channel.modulation, "modulation of a satellite",
                                            oneOf(kModulations)),
                .rollOff = optionalValue(channel.rollOff, "roll-off", oneOf(kRollOffs)),
                .pilot = optionalValue(channel.pilot, "pilot", oneOf(kPilots)),
                .streamId = optionalValue(
                    channel.streamId, "stream id from 0 to 255",
                    [](std::string_view text) { return numberIn(text, kStreamIds, 1); })};
    }

    std::optional<TransponderEntry> entryOf(const Channel& channel)
    {
        const auto frequency =
            valueOfProperty(channel, channel.frequency, "FREQUENCY",
                            "frequency of a satellite in kHz", [](std::string_view text) {
                                return numberIn(text, kFrequencies, kSatelliteUnit / kKilo);
                            });
        const auto polarization = valueOfProperty(channel, channel.polarization, "POLARIZATION",
                                                  "polarization", polarizationOf);
        const auto symbolRate = valueOfProperty(
            channel, channel.symbolRate, "SYMBOL_RATE", "symbol rate in symbols per second",
            [](std::string_view text) { return numberIn(text, kSymbolRates, kSymbolRateUnit); });
        std::optional<std::int32_t> codeRate = 0;
        if (channel.codeRate)
            codeRate =
                valueOfProperty(channel, channel.codeRate, "INNER_FEC", "code rate", codeRateOf);
        if (!frequency || !polarization || !symbolRate || !codeRate)
            return std::nullopt;
        return TransponderEntry{.frequency = *frequency,
                                .polarization = *polarization,
                                .symbolRate = *symbolRate,
                                .fec = *codeRate,
                                .s2 = s2Of(channel)};
    }

    void reportOthers()
    {
        if (others_ == 1)
            report(firstOther_.line,
                   "the channel's system " + firstOther_.what + " is not for the satellite list");
        else if (others_ > 1)
            report(firstOther_.line, "this and " + std::to_string(others_ - 1) +
                                         " more channels are not for the satellite list (" +
                                         firstOther_.what + ")");
    }

    ScanTable table_;
    std::size_t line_ = 0;
    Channel channel_;
    std::size_t others_ = 0; ///< channels that are received from no satellite
    LineProblem firstOther_{};
};

} // namespace

ScanTable parseScanTable(std::string_view content)
{
    if (content.starts_with(kByteOrderMark))
        content.remove_prefix(kByteOrderMark.size());
    return Parser().parse(content);
}

} // namespace tessaview
