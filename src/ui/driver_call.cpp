#include "ui/driver_call.h"

#include "ui/message.h"

#include <chrono>
#include <memory>
#include <system_error>
#include <utility>

#include <QProgressDialog>
#include <QTimer>

namespace tessaview {

namespace {

/// A call that is over sooner than this shows no box.
constexpr std::chrono::milliseconds kImperceptible(150);
constexpr std::chrono::milliseconds kLookAgainAfter(50);

bool waitBehindBox(const PendingCall& call, QWidget* parent, const QString& text)
{
    QProgressDialog box(text, QStringLiteral("Stop waiting"), 0, 0, parent);
    box.setWindowTitle(QLatin1String(kProgramTitle));
    box.setWindowModality(Qt::ApplicationModal);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &box, [&] {
        if (call.waitFor({}))
            box.accept();
    });
    look.start(kLookAgainAfter);
    box.exec();
    return call.waitFor({});
}

} // namespace

std::optional<Status> DriverCall::run(QWidget* parent, const QString& text,
                                      std::function<Status()> call)
{
    const auto result = std::make_shared<Status>(status::kUnexpected);
    try {
        last_.emplace([result, call = std::move(call)](const CallObserver&) { *result = call(); });
    } catch (const std::system_error&) { // there can be no thread
        return status::kOutOfMemory;
    }
    if (!last_->waitFor(kImperceptible) && !waitBehindBox(*last_, parent, text))
        return std::nullopt;
    return *result;
}

bool DriverCall::isBusy() const
{
    return last_ && !last_->waitFor({});
}

} // namespace tessaview
