#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QObject>

class QWidget;

namespace tessaview {

/// Lets files and folders be dropped on a window.
class CaptureDrop : public QObject {
    Q_OBJECT

public:
    /// Belongs to the window. `isWelcome` is asked when something is dragged over the window;
    /// `open` is called after the drop with the paths, in UTF-8.
    CaptureDrop(QWidget* window, std::function<bool()> isWelcome,
                std::function<void(const std::vector<std::string>&)> open);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<bool()> isWelcome_;
    std::function<void(const std::vector<std::string>&)> open_;
};

} // namespace tessaview
