#include "acquisition/tuning_text.h"

#include "platform/format.h"

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
    double least;
    double most;
};
constexpr Quantity kSatelliteFrequency{"frequency", "MHz", 500, 50'000};
constexpr Quantity kGroundFrequency{"frequency", "MHz", 1, 5'000};
constexpr Quantity kSymbolRate{"symbol rate", "kS/s", 100, 100'000};

/// A word that stands for a code.
struct Word {
    const char* text;
    std::uint8_t code;
};
constexpr std::array<Word, 4> kPolarizations{{{"H", 0}, {"V", 1}, {"L", 2}, {"R", 3}}};
constexpr std::array<Word, 9> kCodeRates{{{"1/2", 1},
                                          {"2/3", 2},
                                          {"3/4", 3},
                                          {"5/6", 4},
                                          {"7/8", 5},
                                          {"8/9", 6},
                                          {"3/5", 7},
                                          {"4/5", 8},
                                          {"9/10", 9}}};
constexpr std::array<Word, 2> kSystems{{{"S", 0}, {"S2", 1}}};
constexpr std::array<Word, 2> kModulations{{{"QPSK", 1}, {"8PSK", 2}}};
constexpr std::array<Word, 3> kRollOffs{{{"0.35", 0}, {"0.25", 1}, {"0.20", 2}}};
constexpr std::array<Word, 5> kCableModulations{
    {{"16QAM", 1}, {"32QAM", 2}, {"64QAM", 3}, {"128QAM", 4}, {"256QAM", 5}}};
constexpr std::array<Word, 4> kBandwidths{{{"8", 0}, {"7", 1}, {"6", 2}, {"5", 3}}};

/// A word that may be left out.
struct Choice {
    const char* name;
    std::span<const Word> words;
    std::optional<std::uint8_t> code = {};
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

std::optional<std::uint8_t> codeOf(const std::string& word, std::span<const Word> words)
{
    for (const Word& each : words)
        if (word == each.text)
            return each.code;
    return std::nullopt;
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

    /// A number that has to be there, in units of which one of the quantity's holds `scale`.
    std::uint32_t number(const Quantity& quantity, unsigned scale)
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
        return static_cast<std::uint32_t>(std::llround(value * scale));
    }

    /// A word that has to be there.
    std::uint8_t word(const char* name, std::span<const Word> words)
    {
        const std::string word = next(name);
        const auto code = codeOf(word, words);
        if (!code && problem_.empty())
            problem_ = "'" + word + "' is no " + name + ": " + listOf(words);
        return code.value_or(0);
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

SatelliteTuning satelliteTuning(WordReader& reader)
{
    SatelliteTuning tuning{};
    tuning.frequency = reader.number(kSatelliteFrequency, 100);
    tuning.polarization = reader.word("polarization", kPolarizations);
    tuning.symbol_rate = reader.number(kSymbolRate, 10);
    std::array<Choice, 4> choices{{{"code rate", kCodeRates},
                                   {"system", kSystems},
                                   {"modulation", kModulations},
                                   {"roll-off", kRollOffs}}};
    reader.rest(choices);
    const auto& [codeRate, system, modulation, rollOff] = choices;
    tuning.FEC_inner = codeRate.code.value_or(0);
    const bool needsS2 = rollOff.code || modulation.code == 2;
    tuning.modulation = static_cast<std::uint8_t>(rollOff.code.value_or(0) << 3U |
                                                  system.code.value_or(needsS2 ? 1 : 0) << 2U |
                                                  modulation.code.value_or(0));
    return tuning;
}

CableTuning cableTuning(WordReader& reader)
{
    CableTuning tuning{};
    tuning.frequency = reader.number(kGroundFrequency, 10'000);
    tuning.symbol_rate = reader.number(kSymbolRate, 10);
    std::array<Choice, 1> modulation{{{"modulation", kCableModulations}}};
    reader.rest(modulation);
    tuning.modulation = modulation[0].code.value_or(0);
    return tuning;
}

TerrestrialTuning terrestrialTuning(WordReader& reader)
{
    TerrestrialTuning tuning{};
    tuning.centre_frequency = reader.number(kGroundFrequency, 100'000);
    std::array<Choice, 1> bandwidth{{{"bandwidth in MHz", kBandwidths}}};
    reader.rest(bandwidth);
    tuning.bandwidth = bandwidth[0].code.value_or(0);
    return tuning;
}

} // namespace

Transponder::Tuning parseTuning(TunerType type, std::string_view text, std::string& problem)
{
    WordReader reader(text);
    Transponder::Tuning tuning = std::monostate();
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
    return std::monostate();
}

} // namespace tessaview
