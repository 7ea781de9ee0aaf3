#include "ui/driver_call.h"

#include "ui/message.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include <QProgressDialog>
#include <QTimer>

namespace tessaview {

namespace {

/// A call that is over sooner than this shows no box.
constexpr std::chrono::milliseconds kImperceptible(150);
constexpr std::chrono::milliseconds kLookAgainAfter(50);

} // namespace

struct DriverCall::Shared {
    std::optional<Status> waitFor(std::chrono::milliseconds time)
    {
        std::unique_lock lock(mutex);
        ended.wait_for(lock, time, [this] { return result.has_value(); });
        return result;
    }

    std::function<Status()> call;
    std::mutex mutex;
    std::condition_variable ended;
    std::optional<Status> result = {}; // guarded by mutex
};

namespace {

template <class Shared>
std::optional<Status> waitBehindBox(Shared& shared, QWidget* parent, const QString& text)
{
    QProgressDialog box(text, QStringLiteral("Stop waiting"), 0, 0, parent);
    box.setWindowTitle(QLatin1String(kProgramTitle));
    box.setWindowModality(Qt::ApplicationModal);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &box, [&] {
        if (shared.waitFor({}))
            box.accept();
    });
    look.start(kLookAgainAfter);
    box.exec();
    return shared.waitFor({});
}

} // namespace

std::optional<Status> DriverCall::run(QWidget* parent, const QString& text,
                                      std::function<Status()> call)
{
    last_ = std::make_shared<Shared>();
    last_->call = std::move(call);
    std::thread worker([shared = last_] {
        const Status result = shared->call();
        shared->call = nullptr;
        const std::lock_guard lock(shared->mutex);
        shared->result = result;
        shared->ended.notify_all();
    });
    auto result = last_->waitFor(kImperceptible);
    if (!result)
        result = waitBehindBox(*last_, parent, text);
    if (result)
        worker.join();
    else
        worker.detach();
    return result;
}

bool DriverCall::isBusy() const
{
    return last_ && !last_->waitFor({});
}

} // namespace tessaview
