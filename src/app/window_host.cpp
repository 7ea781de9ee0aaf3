#include "app/window_host.h"

#include "app/capture_drop.h"
#include "app/help_addresses.h"
#include "app/tessaview3_app.h"
#include "ui/application/driver_select_dialog.h"
#include "ui/application/driver_wait.h"
#include "ui/message.h"
#include "ui/text.h"

#include <utility>

#include <QApplication>
#include <QPushButton>

namespace tessaview {

namespace {

constexpr int kLockTurnMilliseconds = 20;
constexpr int kMaxLockTurns = 150;

} // namespace

WindowHost::WindowHost(std::chrono::milliseconds patience) : patience_(patience)
{
    lockTimer_.setInterval(kLockTurnMilliseconds);
    QObject::connect(&lockTimer_, &QTimer::timeout, &lockTimer_, [this] { readWhenLocked(); });
}

WindowHost::~WindowHost() = default;

void WindowHost::quit()
{
    isQuitting_ = true;
    QApplication::exit(); // unlike quit, this ends the loops of the start-up's dialogs too
}

void WindowHost::closeDocument()
{
    lockTimer_.stop();
    if (frame_)
        frame_->close(); // its parts tell it when they hide, which it must live to hear
    frame_.reset();
    document_.reset();
}

void WindowHost::showMessage(const std::string& text, const std::string& detail)
{
    if (!isQuitting_)
        complain(frame_.get(), toQString(text), toQString(detail));
}

std::optional<bool> WindowHost::askToTryAgain(const std::string& text, const std::string& detail)
{
    MessageBox box(nullptr, QMessageBox::Question, toQString(text), QMessageBox::NoButton);
    box.setDetail(toQString(detail));
    const QPushButton* const again =
        box.addButton(QStringLiteral("&Try again"), QMessageBox::AcceptRole);
    QPushButton* const without =
        box.addButton(QStringLiteral("Start &without it"), QMessageBox::RejectRole);
    box.setDefaultButton(without);
    box.setEscapeButton(without);
    if (!isQuitting_)
        box.exec();
    if (isQuitting_)
        return std::nullopt;
    return box.clickedButton() == again;
}

std::optional<std::string> WindowHost::RunDriverSelection(CTessaview3App& application,
                                                          bool isFirstStart)
{
    return tessaview::RunDriverSelection(nullptr, {.registry = application.registry(),
                                                   .isFirstStart = isFirstStart,
                                                   .patience = patience_,
                                                   .leftOut = application.leftOut(),
                                                   .mark = application.startMark(),
                                                   .isOver = [this] { return isQuitting_; }});
}

bool WindowHost::waitForDriver(const PendingCall& call, const std::string& driverName,
                               const OperationProgress& progress)
{
    DriverWait wait{.patience = patience_,
                    .giveUp = QStringLiteral("&Quit"),
                    .consequence = QStringLiteral("When you quit, the next start asks for a driver "
                                                  "again."),
                    .progress = &progress,
                    .isOver = [this] { return isQuitting_; }};
    if (frame_) {
        wait.giveUp = QStringLiteral("&Give up");
        wait.consequence = QStringLiteral("When you give up, nothing is read.");
    }
    return tessaview::waitForDriver(frame_.get(), call, toQString(driverName), wait);
}

void WindowHost::setUpFramework()
{
    // Boxes of the start-up may close without ending the program.
    QApplication::setQuitOnLastWindowClosed(false);
}

bool WindowHost::processShellCommand(CTessaview3App& application)
{
    application_ = &application;
    dialogs_ = std::make_unique<ApplicationDialogs>(application);
    document_ = std::make_unique<CTessaview3Doc>(application.driver(), application.satellites(),
                                                 *dialogs_, application.lastCallsOfStart());
    frame_ = std::make_unique<CMainFrame>(*document_, helpAddresses(application.buildNumber()));
    new CaptureDrop(
        frame_.get(), [this] { return !document_->driverCall().isBusy(); },
        [this](const std::vector<std::string>& captures) { openDropped(captures); });
    return !isQuitting_;
}

void WindowHost::showMainWindow()
{
    frame_->show();
    QApplication::setQuitOnLastWindowClosed(true);
}

void WindowHost::openDropped(const std::vector<std::string>& captures)
{
    frame_->raise();
    frame_->activateWindow();
    const auto answer = document_->askKeepData();
    if (answer == CTessaview3Doc::KeepData::Cancel || !application_->openCaptures(captures))
        return;
    document_->setDriver(application_->driver());
    dropAnswer_ = answer;
    readCurrentTransponder();
}

/// The command is enabled when the driver has been asked, on a thread of its own, for its lock.
void WindowHost::readCurrentTransponder()
{
    document_->driverMayHaveChanged();
    lockTurns_ = 0;
    lockTimer_.start();
}

void WindowHost::readWhenLocked()
{
    if (QApplication::activeModalWidget()) {
        dropAnswer_.reset(); // the user is quicker: one thing after the other, on other data then
        return;
    }
    const bool isReady = document_->isEnabled(Command::ScanTransponder);
    if (!isReady && ++lockTurns_ < kMaxLockTurns)
        return;
    lockTimer_.stop();
    const auto answer = std::exchange(dropAnswer_, std::nullopt);
    if (!isReady)
        return;
    dialogs_->setReadsAtOnce(true);
    document_->scan(ScanMode::CurrentTransponder, answer ? *answer : document_->askKeepData());
    dialogs_->setReadsAtOnce(false);
}

} // namespace tessaview
