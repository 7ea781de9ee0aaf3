#pragma once

#include "component/guid.h"
#include "driver/driver_session.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tessaview {

/// A call to a driver, as a person is told of it.
struct MarkedCall {
    Guid clsid{};          ///< the driver's class
    std::string driver;    ///< as its manifest calls it; one line
    std::string operation; ///< that was called last
};

/// Keeps on disk which driver a start is calling, so that when the call ends the process, the next
/// start knows. Only one start uses the file at a time; one that finds it in use keeps nothing. All
/// operations may be called from any thread, and ignore that the file cannot be written: then
/// nothing is known.
class StartMark {
public:
    /// Reads what the last start left, if any. An empty path keeps nothing.
    explicit StartMark(const std::filesystem::path& file);
    StartMark(const StartMark&) = delete;
    StartMark& operator=(const StartMark&) = delete;
    ~StartMark();

    /// The call that the last start did not come back from; nothing when it ended well.
    const std::optional<MarkedCall>& last() const { return last_; }

    /// Before a call: what the next start is to know, should this one not come back.
    void note(const MarkedCall& call);
    /// No call is under way any more.
    void clear();
    /// The start is over: clears what it noted, and another start may use the file.
    void finish();

private:
    void write(const std::string& text);

    std::mutex mutex_;
    int descriptor_ = -1; ///< -1 when nothing is kept
    bool hasNoted_ = false;
    std::optional<MarkedCall> last_;
};

/// An observer that notes each call of the driver, then tells it to `observer`, which may be null.
/// An empty operation says that no call is under way. `mark` may be null: nothing is noted then.
CallObserver marking(std::shared_ptr<StartMark> mark, const Guid& clsid, std::string driver,
                     CallObserver observer = {});

} // namespace tessaview
