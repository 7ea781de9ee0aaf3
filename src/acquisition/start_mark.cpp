#include "acquisition/start_mark.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sstream>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace tessaview {

namespace {

constexpr std::size_t kMaxBytes = 4096;

/// Nothing unless the text is a whole mark; anybody may have written the file.
std::optional<MarkedCall> parsed(const std::string& text)
{
    std::istringstream lines(text);
    std::string clsid;
    MarkedCall call;
    if (!std::getline(lines, clsid) || !std::getline(lines, call.driver) ||
        !std::getline(lines, call.operation) || lines.eof())
        return std::nullopt;
    const auto known = parseGuid(clsid);
    if (!known)
        return std::nullopt;
    call.clsid = *known;
    return call;
}

} // namespace

StartMark::StartMark(const std::filesystem::path& file)
{
    if (file.empty())
        return;
    descriptor_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) != 0)
        ::close(std::exchange(descriptor_, -1));
    if (descriptor_ < 0)
        return;
    std::array<char, kMaxBytes> text{};
    const ssize_t size = ::pread(descriptor_, text.data(), text.size(), 0);
    if (size > 0)
        last_ = parsed({text.data(), static_cast<std::size_t>(size)});
}

StartMark::~StartMark()
{
    finish();
}

void StartMark::note(const MarkedCall& call)
{
    std::string driver = call.driver.substr(0, kMaxBytes / 2);
    std::replace(driver.begin(), driver.end(), '\n', ' ');
    const std::lock_guard lock(mutex_);
    hasNoted_ = true;
    write(toText(call.clsid) + '\n' + driver + '\n' + call.operation + '\n');
}

void StartMark::clear()
{
    const std::lock_guard lock(mutex_);
    hasNoted_ = true;
    write("");
}

void StartMark::finish()
{
    const std::lock_guard lock(mutex_);
    if (descriptor_ < 0)
        return;
    if (hasNoted_)
        write("");
    ::close(std::exchange(descriptor_, -1));
}

void StartMark::write(const std::string& text)
{
    if (descriptor_ < 0)
        return;
    // No part of a longer text may stay behind.
    if (::ftruncate(descriptor_, 0) != 0 || ::pwrite(descriptor_, text.data(), text.size(), 0) < 0)
        ::close(std::exchange(descriptor_, -1));
}

CallObserver marking(std::shared_ptr<StartMark> mark, const Guid& clsid, std::string driver,
                     CallObserver observer)
{
    return [mark = std::move(mark), clsid, driver = std::move(driver),
            observer = std::move(observer)](const char* operation) {
        const bool isUnderWay = *operation != '\0';
        if (mark && isUnderWay)
            mark->note({.clsid = clsid, .driver = driver, .operation = operation});
        else if (mark)
            mark->clear();
        if (observer && isUnderWay)
            observer(operation);
    };
}

} // namespace tessaview
