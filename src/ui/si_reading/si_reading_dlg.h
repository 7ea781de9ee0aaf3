#pragma once

#include "acquisition/scan_controller.h"

#include <array>
#include <chrono>
#include <functional>
#include <mutex>
#include <optional>

#include <QDialog>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace tessaview {

/// "SI Reading": scans and shows how far it has come. The worker's news reach it as queued calls.
///
/// However the user closes it, it goes only when nothing is under way any more: a scan is
/// cancelled first. It then ends with OK, or with Cancel when the last scan was cancelled.
class CSiReadingDlg : public QDialog, private ScanEvents {
    Q_OBJECT

public:
    /// The driver and the list, which may be null, are shared; the model must outlive this.
    /// Throws std::system_error when there can be no thread.
    CSiReadingDlg(QWidget* parent, NetworkMap& model, ScanMode mode, IDriverInfo* driver,
                  ISatListManager* satellites,
                  IncompleteStreams incomplete = IncompleteStreams::Refuse);
    /// Waits until nothing is under way, without keeping the windows from being served.
    ~CSiReadingDlg() override;

    /// What to do when that takes longer.
    void setPatience(std::chrono::milliseconds patience, std::function<void()> leave);

    /// Starts the scan as soon as the driver has told its tuner, and goes when it has ended.
    void runByItself();

    /// What became of the streams of the last scan.
    const ScanSummary& summary() const { return controller_.summary(); }

    void accept() override { leave(); }
    void reject() override { leave(); }

signals:
    // The worker's news on their way to the window's thread.
    void stepsCame();
    void satelliteWanted();
    void openingCame();
    void endCame();
    void readCame(int percent);

private:
    /// A level's label and box.
    struct Level {
        QLabel* label = nullptr;
        QLineEdit* box = nullptr;
    };
    struct Step {
        std::size_t number;
        std::size_t total;
    };

    // Called on the worker's thread.
    void reached(ScanLevel level, std::size_t number, std::size_t total) override;
    void hasRead(std::optional<unsigned> percent) override
    {
        emit readCame(percent ? static_cast<int>(*percent) : -1);
    }
    void askForSatellite() override { emit satelliteWanted(); }
    void tunerKnown() override { emit openingCame(); }
    void scanFinished() override { emit endCame(); }

    void build();
    void connectWorker();
    void listSatellites(ISatListManager* satellites);
    Level& levelOf(ScanLevel level) { return levels_[static_cast<std::size_t>(level)]; }
    void switchOff(ScanLevel level, bool isNotApplicable);
    void switchOffByMode();

    void takeOpening();
    void takeTuner();
    void chooseSatellite(const QString& name);
    bool isSatelliteWanted() const;
    void startOrCancel();
    void takeSteps();
    void takeRead(int percent);
    void takeEnd();
    void leave();
    void showState();

    QLabel* satelliteLabel_ = nullptr;
    QComboBox* satellite_ = nullptr;
    std::array<Level, kScanLevelCount> levels_{};
    QPushButton* start_ = nullptr;
    QPushButton* close_ = nullptr;
    bool runsByItself_ = false;
    std::chrono::milliseconds patience_{};
    std::function<void()> leave_;
    QProgressBar* activity_ = nullptr;

    std::mutex stepsMutex_;
    std::array<std::optional<Step>, kScanLevelCount> steps_; ///< those not shown yet
    ScanController controller_; ///< last: its threads use what stands above
};

/// How a run of the dialog is to go.
struct SiReadingWay {
    bool byItself = false; ///< it starts by itself and goes when it has read
    IncompleteStreams incomplete = IncompleteStreams::Refuse;
    /// When the program ends and a driver keeps the scan from ending for so long, `leave`, which
    /// may be null, is called; without it the end waits.
    std::chrono::milliseconds patience = std::chrono::seconds(5);
    std::function<void()> leave = {};
};

/// How a run of the dialog ended.
struct SiReadingEnd {
    bool isOk = false;
    ScanSummary summary = {}; ///< of its last scan
};

SiReadingEnd runSiReading(QWidget* parent, NetworkMap& model, ScanMode mode, IDriverInfo* driver,
                          ISatListManager* satellites, const SiReadingWay& way = {});

} // namespace tessaview
