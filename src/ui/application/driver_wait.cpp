#include "ui/application/driver_wait.h"

#include "ui/message.h"
#include "ui/text.h"

#include <memory>

#include <QCoreApplication>
#include <QPushButton>

namespace tessaview {

namespace {

using Clock = std::chrono::steady_clock;

/// Asks whether to wait on, without waiting for the answer.
class WaitBox {
public:
    WaitBox(QWidget* parent, const QString& driverName, const DriverWait& wait)
        : box_(parent, QMessageBox::Warning,
               QStringLiteral("The driver %1 does not answer.").arg(driverName),
               QMessageBox::NoButton)
        , consequence_(wait.consequence)
    {
        QPushButton* const keep =
            box_.addButton(QStringLiteral("&Keep waiting"), QMessageBox::RejectRole);
        giveUp_ = box_.addButton(wait.giveUp, QMessageBox::DestructiveRole);
        box_.setDefaultButton(keep);
        box_.setEscapeButton(keep);
        box_.setWindowModality(Qt::ApplicationModal);
    }

    void show(const std::string& operation, std::chrono::seconds sinceStart)
    {
        box_.setDetail(QStringLiteral("Its call %1 has not returned for %2 s. It may still do so: "
                                      "this box closes by itself then.\n%3")
                           .arg(toQString(operation))
                           .arg(sinceStart.count())
                           .arg(consequence_));
        box_.show();
    }
    bool isVisible() const { return box_.isVisible(); }
    bool wasGivenUp() const { return box_.clickedButton() == giveUp_; }

private:
    MessageBox box_;
    QString consequence_;
    QPushButton* giveUp_ = nullptr;
};

} // namespace

bool waitForDriver(QWidget* parent, const PendingCall& call, const QString& driverName,
                   const DriverWait& wait)
{
    constexpr auto kTurn = std::chrono::milliseconds(20);
    const Clock::time_point start = Clock::now();
    Clock::time_point nextQuestion = start + wait.patience;
    std::unique_ptr<WaitBox> box;
    while (!call.waitFor(kTurn)) {
        if (wait.isOver && wait.isOver())
            return false;
        const bool isAsking = box && box->isVisible();
        // Without a box on top, what the user does to the other windows has to wait as well.
        QCoreApplication::processEvents(isAsking ? QEventLoop::AllEvents
                                                 : QEventLoop::ExcludeUserInputEvents);
        if (isAsking && !box->isVisible()) {
            if (box->wasGivenUp())
                return false;
            nextQuestion = Clock::now() + wait.patience;
        } else if (!isAsking && Clock::now() >= nextQuestion) {
            box = std::make_unique<WaitBox>(parent, driverName, wait);
            box->show(call.operation(),
                      std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start));
        }
    }
    return true;
}

} // namespace tessaview
