#include "ui/application/driver_wait.h"

#include "driver/source_files.h"
#include "ui/message.h"
#include "ui/text.h"

#include <memory>
#include <utility>

#include <QCoreApplication>
#include <QProgressDialog>
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

/// Shows how far a driver is that looks at captures.
class LookBox {
public:
    LookBox(QWidget* parent, const QString& giveUp) : box_(QString(), giveUp, 0, 0, parent)
    {
        box_.setWindowModality(Qt::ApplicationModal);
        box_.setMinimumDuration(0);
        box_.setAutoReset(false);
    }

    void show(const OperationProgress::Now& now)
    {
        box_.setLabelText(toQString(lookText(now)));
        box_.setMaximum(now.total > 0 ? 100 : 0);
        box_.setValue(static_cast<int>(percentOf(now)));
        box_.show();
    }
    bool wasGivenUp() const { return box_.wasCanceled(); }

private:
    QProgressDialog box_;
};

/// The time until a driver has answered.
class Waiting {
public:
    Waiting(QWidget* parent, const PendingCall& call, QString driverName, const DriverWait& wait)
        : parent_(parent)
        , call_(call)
        , driverName_(std::move(driverName))
        , wait_(wait)
    {
    }

    /// Shows how it stands and serves the windows; false when the user gives up.
    bool turn()
    {
        if (!showLook())
            return askInTurn();
        serveWindows();
        return !look_->wasGivenUp();
    }

private:
    bool showLook();
    bool askInTurn();
    void serveWindows() const
    {
        // Without a box on top, what the user does to the other windows has to wait as well.
        const bool hasBox = look_ || (question_ && question_->isVisible());
        QCoreApplication::processEvents(hasBox ? QEventLoop::AllEvents
                                               : QEventLoop::ExcludeUserInputEvents);
    }

    QWidget* parent_;
    const PendingCall& call_;
    QString driverName_;
    const DriverWait& wait_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point nextQuestion_ = start_ + wait_.patience;
    std::unique_ptr<WaitBox> question_;
    std::unique_ptr<LookBox> look_;
};

/// Whether the driver has looked at captures for longer than an eye blinks.
bool Waiting::showLook()
{
    constexpr auto kBlink = std::chrono::milliseconds(150);
    const auto now = wait_.progress ? wait_.progress->now() : OperationProgress::Now();
    if (now.total == 0 && call_.operation() != kLooksAtCaptures) {
        look_.reset();
        return false;
    }
    nextQuestion_ = Clock::now() + wait_.patience;
    question_.reset();
    if (!look_ && Clock::now() - start_ >= kBlink)
        look_ = std::make_unique<LookBox>(parent_, wait_.giveUp);
    if (look_)
        look_->show(now);
    return look_ != nullptr;
}

bool Waiting::askInTurn()
{
    const bool isAsking = question_ && question_->isVisible();
    serveWindows();
    if (isAsking && !question_->isVisible()) {
        if (question_->wasGivenUp())
            return false;
        nextQuestion_ = Clock::now() + wait_.patience;
    } else if (!isAsking && Clock::now() >= nextQuestion_) {
        question_ = std::make_unique<WaitBox>(parent_, driverName_, wait_);
        question_->show(call_.operation(),
                        std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start_));
    }
    return true;
}

} // namespace

bool waitForDriver(QWidget* parent, const PendingCall& call, const QString& driverName,
                   const DriverWait& wait)
{
    constexpr auto kTurn = std::chrono::milliseconds(20);
    Waiting waiting(parent, call, driverName, wait);
    while (!call.waitFor(kTurn))
        if ((wait.isOver && wait.isOver()) || !waiting.turn())
            return false;
    return true;
}

} // namespace tessaview
