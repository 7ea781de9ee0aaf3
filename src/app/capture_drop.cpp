#include "app/capture_drop.h"

#include <utility>

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace tessaview {

namespace {

/// The local files among what is dragged.
std::vector<std::string> localFiles(const QDropEvent& event)
{
    std::vector<std::string> paths;
    const QList<QUrl> urls = event.mimeData()->urls();
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths.push_back(url.toLocalFile().toStdString());
    return paths;
}

} // namespace

CaptureDrop::CaptureDrop(QWidget* window, std::function<bool()> isWelcome,
                         std::function<void(const std::vector<std::string>&)> open)
    : QObject(window)
    , isWelcome_(std::move(isWelcome))
    , open_(std::move(open))
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool CaptureDrop::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto& drop = *static_cast<QDropEvent*>(event);
    const std::vector<std::string> paths = localFiles(drop);
    if (paths.empty() || !isWelcome_())
        return false;
    // Nothing is taken away from where it lies, whatever the other side proposes.
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    // The program that files are dragged from waits until this returns.
    if (event->type() == QEvent::Drop)
        QMetaObject::invokeMethod(
            this, [this, paths] { open_(paths); }, Qt::QueuedConnection);
    return true;
}

} // namespace tessaview
