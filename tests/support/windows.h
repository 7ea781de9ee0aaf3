#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

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

/// Closes the message boxes that come up and collects their texts.
class MessageReader : public QObject {
public:
    MessageReader()
    {
        connect(&timer_, &QTimer::timeout, this, [this] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                texts.push_back(box->text().toStdString());
                if (QAbstractButton* const button = box->button(answer))
                    button->click();
                else
                    box->accept();
            }
        });
        timer_.start(1);
    }

    std::vector<std::string> texts;
    QMessageBox::StandardButton answer = QMessageBox::NoButton; ///< to boxes that have it

private:
    QTimer timer_;
};

/// Waits until something has come true; false when it does not within a generous time.
template <class Condition>
bool waitFor(Condition condition)
{
    return QTest::qWaitFor(condition, 60'000);
}

/// A widget that has its number for a name.
template <class Widget>
Widget& control(const QWidget& window, int id)
{
    auto* const found = window.findChild<Widget*>(QString::number(id));
    if (!found)
        throw std::runtime_error("no control " + std::to_string(id));
    return *found;
}

/// Drops files on a window; whether it took them.
inline bool drop(QWidget& window, const std::vector<std::filesystem::path>& files)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const std::filesystem::path& file : files)
        urls << QUrl::fromLocalFile(QString::fromStdString(file.string()));
    data.setUrls(urls);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter({}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent event({}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
    EXPECT_TRUE(!event.isAccepted() || event.dropAction() == Qt::CopyAction);
    return event.isAccepted();
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
