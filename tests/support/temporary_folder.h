#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace test {

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "tessaview-XXXXXX").string();
        if (!mkdtemp(name.data()))
            throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

inline void writeFile(const std::filesystem::path& file, std::string_view content)
{
    std::ofstream out(file, std::ios::binary);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
}

inline std::string readFile(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// NOLINTBEGIN(concurrency-mt-unsafe): tests change the environment while no other thread runs

/// An environment variable with another value for as long as this lives; null: not set.
class Environment {
public:
    Environment(const char* name, const char* value) : name_(name)
    {
        if (const char* old = std::getenv(name)) {
            hadValue_ = true;
            old_ = old;
        }
        set(value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { set(hadValue_ ? old_.c_str() : nullptr); }

private:
    void set(const char* value)
    {
        if (value)
            setenv(name_.c_str(), value, 1);
        else
            unsetenv(name_.c_str());
    }

    std::string name_;
    std::string old_;
    bool hadValue_ = false;
};

// NOLINTEND(concurrency-mt-unsafe)

} // namespace test
