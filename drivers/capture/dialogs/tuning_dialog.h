#pragma once

#include "drivers/capture/capture_index.h"

#include <thread>

#include <QDialog>
#include <QStandardItemModel>

class QDialogButtonBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace tessaview {

class CaptureTuner;

/// "Tuning...": the files and folders that make the set of captures, and the capture that the
/// tuner is set to, which has the check mark. "OK" applies and stores the choice.
class TuningDialog : public QDialog {
public:
    TuningDialog(CaptureTuner& tuner, QWidget* owner);
    ~TuningDialog() override;

    void accept() override;

    /// Looks at more files and folders, with progress, and adds what they hold.
    void addSources(const std::vector<std::filesystem::path>& files);
    void openSources(const std::vector<std::filesystem::path>& sources,
                     const std::stop_token& stop);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void arrange();
    void fill();
    void addFiles();
    void addUrls(const QList<QUrl>& urls);
    void addFolder();
    void enableRemove();
    void removeSelected();
    void copyAsText() const;
    void setCurrent(QStandardItem* changed);
    void finish(CaptureSet more);
    void setBusy(bool isBusy);

    CaptureTuner& tuner_;
    CaptureSet set_;
    std::filesystem::path current_; // the capture with the check mark
    QStandardItemModel model_;
    bool isFilling_ = false;
    QTreeView* view_;
    QPushButton* addFiles_;
    QPushButton* addFolder_;
    QPushButton* remove_;
    QProgressBar* bar_;
    QLabel* hint_;
    QDialogButtonBox* buttons_;
    std::jthread worker_; // after all that it uses
};

} // namespace tessaview
