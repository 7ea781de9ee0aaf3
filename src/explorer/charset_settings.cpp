#include "explorer/charset_settings.h"

namespace tessaview {

namespace {

constexpr std::string_view kValue = "charsets";

} // namespace

CharsetPolicy storedCharsetPolicy(const Settings& settings)
{
    CharsetPolicy policy;
    for (const std::string& text : settings.texts(kSettingsKey, kValue)) {
        std::string problem;
        if (const auto rule = parseCharsetRule(text, problem))
            policy.set(*rule);
    }
    return policy;
}

void storeCharsetPolicy(Settings& settings, const CharsetPolicy& policy)
{
    std::vector<std::string> texts{toText(policy.common())};
    for (const auto& [network, rule] : policy.ofNetworks())
        texts.push_back(toText(rule));
    settings.setTexts(kSettingsKey, kValue, texts);
}

} // namespace tessaview
