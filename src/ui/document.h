#pragma once

#include "explorer/commands.h"
#include "explorer/driver_monitor.h"
#include "model/network_map.h"
#include "ui/dialogs.h"
#include "ui/driver_call.h"

#include <optional>

#include <QString>

namespace tessaview {

/// What shows a document: the main window, or a recorder in tests.
class DocumentView {
public:
    DocumentView() = default;
    DocumentView(const DocumentView&) = delete;
    DocumentView& operator=(const DocumentView&) = delete;

    /// Drops everything that points into the model.
    virtual void ClearTree() = 0;
    virtual void RebuildTree(const NetworkMap& model) = 0;
    /// What texts are shown with.
    virtual const CharsetPolicy& charsetPolicy() const = 0;
    /// The parent of the dialogs.
    virtual QWidget* widget() = 0;

protected:
    ~DocumentView() = default;
};

/// Owns the model and the interfaces of the driver, and carries out the commands that need them.
/// It lives before and after its window, ends before the driver is shut down, and belongs to the
/// window's thread.
class CTessaview3Doc {
public:
    /// `driver` and `satellites` may be null: the commands that need them stay disabled. `dialogs`
    /// must outlive this. Begins to ask the driver for its state; `firstCalls`, which may be null,
    /// is told the first call of each kind that this takes, and an empty operation after the last.
    CTessaview3Doc(IUnknown* driver, IUnknown* satellites, Dialogs& dialogs,
                   CallObserver firstCalls = {});
    CTessaview3Doc(const CTessaview3Doc&) = delete;
    CTessaview3Doc& operator=(const CTessaview3Doc&) = delete;
    ~CTessaview3Doc();

    /// Who shows the document; null: nobody. The commands need a view.
    void setView(DocumentView* view) { view_ = view; }

    const NetworkMap& model() const { return model_; }
    IUnknown* driver() const { return driver_.get(); }
    /// Another driver takes the place of the one so far, unless it is that one. Not while a call
    /// to the driver is busy.
    void setDriver(IUnknown* driver);
    /// For calls to the driver that may take long; the commands wait for the one that runs.
    DriverCall& driverCall() { return driverCall_; }
    DriverState driverState() const { return monitor_->state(); }
    bool isEnabled(EnabledWhen rule) const;
    /// Whether incomplete streams are shown by themselves.
    bool showsIncomplete() const { return dialogs_.showsIncomplete(); }
    bool isEnabled(Command command) const;

    /// What becomes of what earlier scans have read.
    enum class KeepData { Keep, Discard, Cancel };
    /// Asks the user, if there is anything.
    KeepData askKeepData();
    /// Scans as the command of the mode does, with an answer that was given before.
    void scan(ScanMode mode, KeepData answer);

    /// Carries out a command of the document, unless it has become disabled; false for a command
    /// that is not the document's.
    bool run(Command command);

    /// Call it after something that may have changed the state of the driver.
    void driverMayHaveChanged() { monitor_->askSoon(); }

    // The file of the document, which is always empty.

    /// "Untitled" for a document that has no file.
    QString title() const;
    const QString& path() const { return path_; }
    /// Takes a file as that of the document, which tells nothing about the model.
    void setPath(const QString& path) { path_ = path; }

private:
    void useDriver(IUnknown* driver, CallObserver firstCalls = {});
    void showDriverDialog(Status (IDeviceDialogs::*show)(WindowHandle) noexcept);

    ComPtr<IUnknown> driver_;
    ComPtr<IDriverControl> control_;
    ComPtr<IDeviceDialogs> deviceDialogs_;
    ComPtr<ISatListManager> satellites_;
    Dialogs& dialogs_;
    DocumentView* view_ = nullptr;
    NetworkMap model_;
    QString path_;
    DriverCall driverCall_;
    std::optional<DriverMonitor> monitor_;
};

} // namespace tessaview
