#pragma once

#include "tests/support/temporary_folder.h"

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace test {

// Texts of cases below tests/: a line that is neither indented nor a comment ("# ...") is an input,
// behind which a comment may stand, and the indented lines below it are what becomes of it.

inline std::string textOf(const std::string& name)
{
    std::string text = readFile(std::filesystem::path(TESSAVIEW_SOURCE_DIR "/tests") / name);
    EXPECT_NE(text, "") << "no text " << name;
    return text;
}

/// The input of a line, if it is one.
inline std::string inputOf(const std::string& line)
{
    return line.starts_with(' ') ? "" : line.substr(0, line.find('#'));
}

inline std::vector<std::string> inputsOf(const std::string& name)
{
    std::vector<std::string> inputs;
    std::istringstream lines(textOf(name));
    for (std::string line; std::getline(lines, line);)
        if (!inputOf(line).empty())
            inputs.push_back(inputOf(line));
    return inputs;
}

/// Where a text differs, as it would be now it is left under the same name in the folder of the
/// test programs.
inline void expectText(const std::string& name, const std::string& actual)
{
    const std::string expected = textOf(name);
    const std::filesystem::path now =
        TESSAVIEW_BUILD_DIR "/tests" / std::filesystem::path(name).filename();
    if (actual != expected)
        writeFile(now, actual);
    EXPECT_EQ(actual, expected) << "it would be " << now;
}

/// Works the inputs of a text and compares what becomes of them.
inline void expectWorked(const std::string& name,
                         const std::function<std::string(const std::string& input)>& work)
{
    std::string actual;
    std::istringstream lines(textOf(name));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(' '))
            continue;
        actual += line + '\n';
        const std::string input = inputOf(line);
        std::istringstream answers(input.empty() ? "" : work(input));
        for (std::string answer; std::getline(answers, answer);)
            actual += "    " + answer + '\n';
    }
    expectText(name, actual);
}

/// Lines in one, "a | b".
inline std::string onOneLine(const std::string& lines)
{
    std::string text;
    std::istringstream each(lines);
    for (std::string line; std::getline(each, line);)
        text += (text.empty() ? "" : " | ") + line;
    return text;
}

/// A text with what is not printable as "\x05", but for the ends of lines.
inline std::string printable(std::string_view text)
{
    std::ostringstream out;
    out << std::hex;
    for (const char each : text) {
        const auto byte = static_cast<unsigned char>(each);
        if (each == '\n' || (byte >= 0x20 && byte < 0x7F))
            out << each;
        else
            out << "\\x" << (byte < 0x10 ? "0" : "") << unsigned{byte};
    }
    return out.str();
}

} // namespace test
