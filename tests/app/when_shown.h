#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace test {

/// Deals with modal windows while the code under test waits for them: the first step with the
/// first that is shown, the next one with the next.
class ModalSteps {
public:
    using Step = std::function<void(QWidget&)>;

    explicit ModalSteps(std::vector<Step> steps) : steps_(std::move(steps))
    {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
        timer_.start(5);
    }

    /// Steps whose windows never came.
    std::size_t left() const { return steps_.size() - next_; }

private:
    void look()
    {
        QWidget* const window = QApplication::activeModalWidget();
        if (!window || !window->isVisible() || window->property("seen").toBool())
            return;
        if (next_ == steps_.size()) {
            window->close();
            return;
        }
        window->setProperty("seen", true);
        steps_[next_++](*window);
    }

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    QTimer timer_;
};

inline std::unique_ptr<ModalSteps> whenShown(std::vector<ModalSteps::Step> steps)
{
    return std::make_unique<ModalSteps>(std::move(steps));
}

/// The texts of all labels or boxes in a window, in their order.
template <class Widget>
std::vector<std::string> textsOf(const QWidget& window)
{
    std::vector<std::string> texts;
    for (const Widget* const each : window.findChildren<Widget*>())
        texts.push_back(each->text().toStdString());
    return texts;
}

inline std::string messageOf(const QWidget& box)
{
    const auto* const message = qobject_cast<const QMessageBox*>(&box);
    return message ? message->text().toStdString() : "no message box";
}

inline std::string detailOf(const QWidget& box)
{
    const auto* const message = qobject_cast<const QMessageBox*>(&box);
    return message ? message->informativeText().toStdString() : "no message box";
}

/// Clicks the button with this text, which marks its mnemonic by an ampersand.
inline void click(QWidget& window, const char* text)
{
    for (QAbstractButton* const button : window.findChildren<QAbstractButton*>())
        if (button->text() == QLatin1String(text))
            button->click();
}

} // namespace test
