#include "ui/document.h"

#include "ui/message.h"
#include "ui/window_handle.h"

#include <utility>

#include <QFileInfo>

namespace tessaview {

namespace {

template <class Interface>
ComPtr<Interface> queried(IUnknown* object)
{
    // A query that fails leaves its pointer null, and what needs it stays disabled.
    ComPtr<Interface> found;
    static_cast<void>(query(object, found));
    return found;
}

} // namespace

CTessaview3Doc::CTessaview3Doc(IUnknown* driver, IUnknown* satellites, Dialogs& dialogs,
                               CallObserver firstCalls)
    : satellites_(queried<ISatListManager>(satellites))
    , dialogs_(dialogs)
{
    useDriver(driver, std::move(firstCalls));
}

void CTessaview3Doc::setDriver(IUnknown* driver)
{
    if (driver != driver_.get())
        useDriver(driver);
}

void CTessaview3Doc::useDriver(IUnknown* driver, CallObserver firstCalls)
{
    monitor_.reset();
    if (firstCalls)
        firstCalls("QueryInterface");
    driver_ = ComPtr<IUnknown>::share(driver);
    control_ = queried<IDriverControl>(driver);
    deviceDialogs_ = queried<IDeviceDialogs>(control_.get());
    monitor_.emplace(control_, queried<ITunerStatus>(control_.get()), std::move(firstCalls));
}

CTessaview3Doc::~CTessaview3Doc() = default;

bool CTessaview3Doc::isEnabled(EnabledWhen rule) const
{
    return tessaview::isEnabled(rule, {.driver = driverState(),
                                       .hasDeviceDialogs = static_cast<bool>(deviceDialogs_),
                                       .hasSatelliteList = static_cast<bool>(satellites_),
                                       .isDriverBusy = driverCall_.isBusy()});
}

bool CTessaview3Doc::isEnabled(Command command) const
{
    return isEnabled(commandInfo(command).enabledWhen);
}

bool CTessaview3Doc::run(Command command)
{
    // The driver may have changed since the menu was opened.
    if (!isEnabled(command))
        return true;
    switch (command) {
    case Command::ScanTransponder:
        scan(ScanMode::CurrentTransponder, askKeepData());
        break;
    case Command::ScanNit:
        scan(ScanMode::CurrentNit, askKeepData());
        break;
    case Command::ScanSatellite:
        scan(ScanMode::SingleSatellite, askKeepData());
        break;
    case Command::ScanAllSatellites:
        scan(ScanMode::AllSatellites, askKeepData());
        break;
    case Command::IncompleteStreams:
        dialogs_.setShowsIncomplete(view_->widget(), !dialogs_.showsIncomplete());
        break;
    case Command::SiTables:
        dialogs_.runSiTables(view_->widget());
        break;
    case Command::DatabaseExport:
        dialogs_.runDatabaseExport(view_->widget(), model_, view_->charsetPolicy());
        break;
    case Command::SatelliteList:
        dialogs_.runSatelliteListManager(view_->widget(), *satellites_.get());
        break;
    case Command::DriverSelection:
        dialogs_.runDriverSelection(view_->widget());
        break;
    case Command::DeviceSettings:
        showDriverDialog(&IDeviceDialogs::ShowSettingsDialog);
        break;
    case Command::DeviceTuning:
        showDriverDialog(&IDeviceDialogs::ShowTuningDialog);
        break;
    case Command::Streaming:
        showDriverDialog(&IDeviceDialogs::ShowStreamingDialog);
        break;
    case Command::About:
        dialogs_.runAbout(view_->widget());
        break;
    default:
        return false;
    }
    return true;
}

CTessaview3Doc::KeepData CTessaview3Doc::askKeepData()
{
    if (model_.empty())
        return KeepData::Keep;
    switch (ask(view_->widget(), QMessageBox::Question,
                QStringLiteral("Data is already loaded.\n"
                               "Do you want to keep existing data ?"),
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel)) {
    case QMessageBox::Yes:
        return KeepData::Keep;
    case QMessageBox::No:
        return KeepData::Discard;
    default:
        return KeepData::Cancel;
    }
}

void CTessaview3Doc::scan(ScanMode mode, KeepData answer)
{
    if (answer == KeepData::Cancel)
        return;
    view_->ClearTree();
    if (answer == KeepData::Discard)
        model_.clear();
    const ComPtr<IDriverInfo> driver = queried<IDriverInfo>(control_.get());
    if (dialogs_.runSiReading(view_->widget(), model_, mode, driver.get(), satellites_.get()))
        view_->RebuildTree(model_);
    driverMayHaveChanged();
}

void CTessaview3Doc::showDriverDialog(Status (IDeviceDialogs::*show)(WindowHandle) noexcept)
{
    static_cast<void>((deviceDialogs_.get()->*show)(windowHandle(view_->widget())));
    driverMayHaveChanged();
}

QString CTessaview3Doc::title() const
{
    return path_.isEmpty() ? QStringLiteral("Untitled") : QFileInfo(path_).fileName();
}

} // namespace tessaview
