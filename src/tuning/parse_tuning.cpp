#include "tuning/parse_tuning.h"

#include "platform/format.h"
#include "tuning/words.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tessaview {

namespace {

/// What a number may be, in the unit people write it in.
struct Quantity {
    const char* name;
    const char* unit;
    double perUnit; ///< Hz or symbols/s
    double least;
    double most;
};
constexpr Quantity kSatelliteFrequency{"frequency", "MHz", kMegahertz, 500, 50'000};
constexpr Quantity kGroundFrequency{"frequency", "MHz", kMegahertz, 1, 5'000};
constexpr Quantity kSymbolRate{"symbol rate", "kS/s", kKilo, 100, 100'000};

/// A word that may be left out.
struct Choice {
    const char* name;
    std::span<const Word> words;
    std::optional<std::int32_t> code = {};
};

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words(1);
    for (const char c : text)
        if (c == ' ' || c == '\t')
            words.emplace_back();
        else
            words.back() += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    std::erase(words, "");
    return words;
}

std::string listOf(std::span<const Word> words)
{
    std::string list;
    for (const Word& each : words)
        list.append(list.empty() ? "" : ", ").append(each.text);
    return list;
}

/// The words from first to last; the first problem stops the reading.
class WordReader {
public:
    explicit WordReader(std::string_view text) : words_(wordsOf(text)) {}

    /// A number that has to be there, in a record's units.
    std::uint32_t number(const Quantity& quantity, std::uint32_t unit)
    {
        const std::string word = next(quantity.name);
        double value = 0;
        const char* const end = word.data() + word.size();
        const auto [stop, error] = std::from_chars(word.data(), end, value);
        if (!problem_.empty())
            return 0;
        if (error != std::errc() || stop != end || !(value >= quantity.least) ||
            !(value <= quantity.most)) {
            problem_ = formatted("'%s' is no %s from %.0f to %.0f %s", word.c_str(), quantity.name,
                                 quantity.least, quantity.most, quantity.unit);
            return 0;
        }
        return static_cast<std::uint32_t>(std::llround(value * (quantity.perUnit / unit)));
    }

    /// A word that has to be there.
    std::uint8_t word(const char* name, std::span<const Word> words)
    {
        const std::string word = next(name);
        const auto code = codeOf(word, words);
        if (!code && problem_.empty())
            problem_ = "'" + word + "' is no " + name + ": " + listOf(words);
        return static_cast<std::uint8_t>(code.value_or(0));
    }

    /// The rest of the words, each of them one of another choice.
    void rest(std::span<Choice> choices)
    {
        while (problem_.empty() && at_ < words_.size())
            take(words_[at_++], choices);
    }

    const std::string& problem() const { return problem_; }

private:
    std::string next(const char* name)
    {
        if (at_ < words_.size())
            return words_[at_++];
        if (problem_.empty())
            problem_ = std::string("the ") + name + " is missing";
        return {};
    }

    void take(const std::string& word, std::span<Choice> choices)
    {
        for (Choice& choice : choices)
            if (const auto code = codeOf(word, choice.words)) {
                if (choice.code)
                    problem_ = "'" + word + "' is a second " + choice.name;
                choice.code = code;
                return;
            }
        problem_ = "'" + word + "' is none of these:";
        for (const Choice& choice : choices)
            problem_ += std::string(" ") + choice.name + " " + listOf(choice.words) + ";";
        problem_.pop_back();
    }

    std::vector<std::string> words_;
    std::size_t at_ = 0;
    std::string problem_;
};

/// The code of a word that was given, else 0.
std::uint8_t codeIn(const Choice& choice)
{
    return static_cast<std::uint8_t>(choice.code.value_or(0));
}

SatelliteTuning satelliteTuning(WordReader& reader)
{
    SatelliteTuning tuning{};
    tuning.frequency = reader.number(kSatelliteFrequency, kSatelliteUnit);
    tuning.polarization = reader.word("polarization", kPolarizationWords);
    tuning.symbol_rate = reader.number(kSymbolRate, kSymbolRateUnit);
    std::array<Choice, 4> choices{{{"code rate", kCodeRateWords},
                                   {"system", kSystemWords},
                                   {"modulation", kModulationWords},
                                   {"roll-off", kRollOffWords}}};
    reader.rest(choices);
    const auto& [codeRate, system, modulation, rollOff] = choices;
    tuning.FEC_inner = codeIn(codeRate);
    const bool needsS2 = rollOff.code || modulation.code == 2;
    tuning.modulation = SatelliteModulation{.type = codeIn(modulation),
                                            .isS2 = system.code.value_or(needsS2 ? 1 : 0) != 0,
                                            .rollOff = codeIn(rollOff)}
                            .code();
    return tuning;
}

CableTuning cableTuning(WordReader& reader)
{
    CableTuning tuning{};
    tuning.frequency = reader.number(kGroundFrequency, kCableUnit);
    tuning.symbol_rate = reader.number(kSymbolRate, kSymbolRateUnit);
    std::array<Choice, 1> modulation{{{"modulation", kCableModulationWords}}};
    reader.rest(modulation);
    tuning.modulation = codeIn(modulation[0]);
    return tuning;
}

TerrestrialTuning terrestrialTuning(WordReader& reader)
{
    TerrestrialTuning tuning{};
    tuning.centre_frequency = reader.number(kGroundFrequency, kTerrestrialUnit);
    std::array<Choice, 1> bandwidth{{{"bandwidth in MHz", kBandwidthWords}}};
    reader.rest(bandwidth);
    tuning.bandwidth = codeIn(bandwidth[0]);
    return tuning;
}

} // namespace

Tuning parseTuning(TunerType type, std::string_view text, std::string& problem)
{
    WordReader reader(text);
    Tuning tuning;
    const char* form = "";
    switch (type) {
    case TunerType::Satellite:
        tuning = satelliteTuning(reader);
        form = "a satellite tuner takes, for example, \"12187.5 H 27500 3/4 S2 8PSK\" (MHz, "
               "polarization, kS/s)";
        break;
    case TunerType::Cable:
        tuning = cableTuning(reader);
        form = "a cable tuner takes, for example, \"474 6900 64QAM\" (MHz, kS/s)";
        break;
    case TunerType::Terrestrial:
        tuning = terrestrialTuning(reader);
        form = "a terrestrial tuner takes, for example, \"474 8\" (MHz, bandwidth in MHz)";
        break;
    default:
        problem = "the tuner is of an unknown kind";
        return tuning;
    }
    problem = reader.problem();
    if (problem.empty())
        return tuning;
    problem.append("\n").append(form);
    return {};
}

} // namespace tessaview
