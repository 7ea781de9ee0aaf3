#pragma once

#include "component/status.h"
#include "driver/pending_call.h"

#include <functional>
#include <optional>

#include <QString>

class QWidget;

namespace tessaview {

/// Makes calls to the driver that may take seconds, one at a time, on a thread of its own, while
/// the window goes on painting behind a modal box. The user may stop waiting for one.
class DriverCall {
public:
    /// Returns what the call returned; nothing when the user stopped waiting. The call then goes
    /// on, so `call` must own what it uses. `kOutOfMemory` when there can be no thread. Not to be
    /// used while `isBusy`.
    std::optional<Status> run(QWidget* parent, const QString& text, std::function<Status()> call);

    /// Whether a call that nobody waits for is still under way.
    bool isBusy() const;

private:
    std::optional<PendingCall> last_;
};

} // namespace tessaview
