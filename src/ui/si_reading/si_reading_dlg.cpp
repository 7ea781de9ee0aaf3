#include "ui/si_reading/si_reading_dlg.h"

#include "satlist/list_access.h"
#include "ui/message.h"
#include "ui/read_only_box.h"
#include "ui/text.h"
#include "ui/window_handle.h"

#include <algorithm>
#include <system_error>

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace tessaview {

namespace {

using namespace std::chrono_literals;

/// How long the dialog waits to be seen for a driver to tell its tuner.
constexpr auto kPatience = 300ms;

/// The controls of a level, from the top of the dialog.
struct LevelRow {
    ScanLevel level;
    const char* text;
    int label;
    int box;
};
constexpr std::array<LevelRow, kScanLevelCount> kLevelRows{{
    {ScanLevel::Satellite, "Scanning satellite:", 1035, 1036},
    {ScanLevel::NitEntry, "NIT entry", 1038, 1037},
    {ScanLevel::NitSection, "NIT section", 1041, 1042},
    {ScanLevel::TransportStream, "Transport Stream", 1039, 1040},
}};
constexpr int kSatelliteLabel = 1043;
constexpr int kSatelliteList = 1032;
constexpr int kStartButton = 1011;
constexpr int kCloseButton = 1;

template <class Widget>
Widget* withId(int id, Widget* widget)
{
    widget->setObjectName(QString::number(id));
    return widget;
}

/// A label in the first column, and what it names in the second.
QLabel* addRow(QGridLayout& grid, const char* text, int labelId, QWidget* field)
{
    auto* const label = withId(labelId, new QLabel(text));
    label->setBuddy(field);
    QString name(text);
    field->setAccessibleName(name.remove(':'));
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(field, row, 1);
    return label;
}

/// Complains, but waits for nobody to close the box, so that a scan that ends meanwhile is seen to.
void complainMeanwhile(QWidget* parent, const QString& text)
{
    auto* const box = new MessageBox(parent, QMessageBox::Warning, text);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace

CSiReadingDlg::CSiReadingDlg(QWidget* parent, NetworkMap& model, ScanMode mode, IDriverInfo* driver,
                             ISatListManager* satellites, IncompleteStreams incomplete)
    : QDialog(parent)
    , controller_({.driver = driver,
                   .satellites = satellites,
                   .model = &model,
                   .incomplete = incomplete,
                   .owner = tessaview::windowHandle(this)},
                  mode, *this)
{
    build();
    connectWorker(); // an answer that came before is seen below
    listSatellites(satellites);
    switchOffByMode();
    if (controller_.openedWithin(kPatience))
        takeTuner();
    showState();
}

CSiReadingDlg::~CSiReadingDlg()
{
    // The worker may be waiting for this thread to print a line.
    controller_.requestClose();
    if (leave_)
        QTimer::singleShot(patience_, this, leave_);
    while (controller_.isBusy())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void CSiReadingDlg::setPatience(std::chrono::milliseconds patience, std::function<void()> leave)
{
    patience_ = patience;
    leave_ = std::move(leave);
}

void CSiReadingDlg::build()
{
    setWindowTitle("SI Reading");
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    satellite_ = withId(kSatelliteList, new QComboBox);
    satellite_->setMinimumContentsLength(30);
    satelliteLabel_ = addRow(*grid, "Satellite:", kSatelliteLabel, satellite_);
    for (const LevelRow& row : kLevelRows) {
        auto* const box = withId(row.box, new QLineEdit);
        makeReadOnly(*box);
        levelOf(row.level) = {.label = addRow(*grid, row.text, row.label, box), .box = box};
    }

    start_ = withId(kStartButton, new QPushButton("Start"));
    close_ = withId(kCloseButton, new QPushButton("Close"));
    connect(start_, &QPushButton::clicked, this, &CSiReadingDlg::startOrCancel);
    connect(close_, &QPushButton::clicked, this, &CSiReadingDlg::accept);
    activity_ = new QProgressBar;
    activity_->setAccessibleName("Activity");
    activity_->setRange(0, 0);
    activity_->setFormat(QStringLiteral("%p % read"));
    QSizePolicy policy = activity_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    activity_->setSizePolicy(policy);

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start_);
    buttons->addWidget(close_);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(activity_);
    layout->addStretch();
    layout->addLayout(buttons);
    start_->setDefault(true); // takes effect in the dialog only
    start_->setFocus();
}

void CSiReadingDlg::connectWorker()
{
    constexpr auto queued = Qt::QueuedConnection;
    connect(this, &CSiReadingDlg::stepsCame, this, &CSiReadingDlg::takeSteps, queued);
    connect(this, &CSiReadingDlg::openingCame, this, &CSiReadingDlg::takeOpening, queued);
    connect(this, &CSiReadingDlg::readCame, this, &CSiReadingDlg::takeRead, queued);
    connect(this, &CSiReadingDlg::endCame, this, &CSiReadingDlg::takeEnd, queued);
    connect(
        this, &CSiReadingDlg::satelliteWanted, this,
        [this] { complainMeanwhile(this, "You must select a satellite to scan"); }, queued);
}

void CSiReadingDlg::listSatellites(ISatListManager* satellites)
{
    for (const std::string& name : satelliteNames(satellites, true))
        satellite_->addItem(toQString(name));
    satellite_->setCurrentIndex(-1);
}

void CSiReadingDlg::switchOff(ScanLevel level, bool isNotApplicable)
{
    const Level& controls = levelOf(level);
    controls.label->setEnabled(false);
    controls.box->setEnabled(false);
    if (isNotApplicable)
        controls.box->setText("N/A");
}

void CSiReadingDlg::switchOffByMode()
{
    const ScanMode mode = controller_.mode();
    if (mode != ScanMode::AllSatellites)
        switchOff(ScanLevel::Satellite, true);
    const bool isOfStreams = mode == ScanMode::CurrentTransponder || mode == ScanMode::AllSources;
    if (isOfStreams || mode == ScanMode::CurrentNit)
        switchOff(ScanLevel::NitEntry, false);
    if (isOfStreams) {
        switchOff(ScanLevel::NitSection, true);
        if (mode == ScanMode::CurrentTransponder)
            switchOff(ScanLevel::TransportStream, true);
    } else if (mode == ScanMode::CurrentNit) {
        levelOf(ScanLevel::NitSection).box->setText("N/A");
    }
    if (mode != ScanMode::SingleSatellite)
        satellite_->setEnabled(false);
}

/// The driver has told what kind of tuner it has, and where that looks.
void CSiReadingDlg::takeTuner()
{
    const TunerNow& tuner = controller_.tuner();
    if (!tuner.isSatellite()) {
        switchOff(ScanLevel::Satellite, false);
        switchOff(ScanLevel::NitEntry, false);
        satellite_->setEnabled(false);
        satelliteLabel_->setEnabled(false);
    } else if (!tuner.satellite.empty() && satellite_->currentIndex() < 0) {
        chooseSatellite(toQString(tuner.satellite));
    }
    if (isSatelliteWanted())
        satellite_->setFocus();
}

/// Chooses the satellite that the driver names. Where the network is the one that is received, it
/// is there, whether the list knows it or not.
void CSiReadingDlg::chooseSatellite(const QString& name)
{
    int found = satellite_->findText(name, Qt::MatchFixedString);
    if (found < 0 && controller_.mode() == ScanMode::CurrentNit) {
        found = satellite_->count();
        satellite_->addItem(name);
    }
    satellite_->setCurrentIndex(found);
}

/// Whether the user has to choose a satellite before a scan.
bool CSiReadingDlg::isSatelliteWanted() const
{
    return satellite_->isEnabled() && satellite_->currentIndex() < 0;
}

void CSiReadingDlg::runByItself()
{
    runsByItself_ = true;
    if (controller_.state() == ScanController::State::Idle && !controller_.isCloseRequested())
        startOrCancel();
}

void CSiReadingDlg::startOrCancel()
{
    if (controller_.state() == ScanController::State::Idle) {
        std::optional<std::string> chosen;
        if (satellite_->currentIndex() >= 0)
            chosen = satellite_->currentText().toStdString();
        try {
            controller_.start(std::move(chosen));
        } catch (const std::system_error&) {
            complainMeanwhile(this, "Failed to create thread");
        }
    } else {
        controller_.cancel();
    }
    showState();
}

void CSiReadingDlg::reached(ScanLevel level, std::size_t number, std::size_t total)
{
    const std::lock_guard lock(stepsMutex_);
    const bool isOnItsWay = std::any_of(steps_.begin(), steps_.end(),
                                        [](const auto& step) { return step.has_value(); });
    steps_[static_cast<std::size_t>(level)] = {.number = number, .total = total};
    if (!isOnItsWay)
        emit stepsCame();
}

void CSiReadingDlg::takeOpening()
{
    if (controller_.completeOpening())
        takeTuner();
    showState();
    if (runsByItself_)
        runByItself();
}

void CSiReadingDlg::takeSteps()
{
    std::array<std::optional<Step>, kScanLevelCount> steps;
    {
        const std::lock_guard lock(stepsMutex_);
        std::swap(steps, steps_);
    }
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (steps[i])
            levels_[i].box->setText(toQString(scanProgressText(steps[i]->number, steps[i]->total)));
}

/// How much of a stream the driver has read; -1 when that is not known.
void CSiReadingDlg::takeRead(int percent)
{
    activity_->setMaximum(percent < 0 ? 0 : 100);
    activity_->setValue(percent < 0 ? -1 : percent);
}

void CSiReadingDlg::takeEnd()
{
    controller_.completeScan();
    if (runsByItself_) {
        leave();
        return;
    }
    showState();
    if (isSatelliteWanted())
        satellite_->setFocus();
    else
        close_->setFocus(); // what was read is shown then
}

void CSiReadingDlg::leave()
{
    controller_.requestClose();
    showState();
}

/// Shows the state of the controller, and goes when that was asked for and may be.
void CSiReadingDlg::showState()
{
    using State = ScanController::State;
    const State state = controller_.state();
    const bool isLeaving = controller_.isCloseRequested();
    if (isLeaving && state == State::Idle) {
        done(controller_.endsWithOk() ? Accepted : Rejected);
        return;
    }
    const bool isIdle = state == State::Idle;
    start_->setText(state == State::Scanning || state == State::Cancelling ? "Cancel" : "Start");
    start_->setEnabled(isIdle || state == State::Scanning);
    close_->setEnabled(isIdle || (state == State::Opening && !isLeaving));
    activity_->setVisible(!isIdle);
}

SiReadingEnd runSiReading(QWidget* parent, NetworkMap& model, ScanMode mode, IDriverInfo* driver,
                          ISatListManager* satellites, const SiReadingWay& way)
{
    try {
        CSiReadingDlg dialog(parent, model, mode, driver, satellites, way.incomplete);
        dialog.setPatience(way.patience, way.leave);
        if (way.byItself)
            dialog.runByItself();
        const bool isOk = dialog.exec() == QDialog::Accepted;
        return {.isOk = isOk, .summary = dialog.summary()};
    } catch (const std::system_error&) {
        complainMeanwhile(parent, "Failed to create thread");
        return {};
    }
}

} // namespace tessaview
