#include "driver/operation_progress.h"

#include <algorithm>
#include <utility>

namespace tessaview {

void OperationProgress::watch(IUnknown* driver)
{
    ComPtr<IReadProgress> found;
    static_cast<void>(query(driver, found)); // one without it does not tell
    const std::lock_guard lock(mutex_);
    source_ = std::move(found);
}

ComPtr<IReadProgress> OperationProgress::source() const
{
    const std::lock_guard lock(mutex_);
    return source_;
}

bool OperationProgress::isKnown() const
{
    return static_cast<bool>(source());
}

OperationProgress::Now OperationProgress::now() const
{
    const auto asked = source();
    Now now;
    if (!asked || failed(asked->GetReadProgress(&now.position, &now.total)))
        return {};
    now.position = std::min(now.position, now.total);
    return now;
}

std::string lookText(const OperationProgress::Now& now)
{
    std::string text = "Looking at the captures...";
    if (now.total > 0)
        text.append(" ")
            .append(std::to_string(now.position))
            .append(" of ")
            .append(std::to_string(now.total));
    return text;
}

unsigned percentOf(const OperationProgress::Now& now)
{
    if (now.total == 0)
        return 0;
    return static_cast<unsigned>(100.0 * static_cast<double>(now.position) /
                                 static_cast<double>(now.total));
}

} // namespace tessaview
