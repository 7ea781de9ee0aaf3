#include "driver/driver_session.h"

#include "component/received_text.h"
#include "driver/source_files.h"
#include "platform/format.h"

#include <utility>

namespace tessaview {

namespace {

void tell(const CallObserver& observer, const char* operation)
{
    if (observer)
        observer(operation);
}

std::u16string driversBelow(const std::filesystem::path& folder)
{
    return toUtf16((folder / "drivers").string());
}

} // namespace

Status DriverSession::open(const ClassRegistry& registry, const Guid& clsid,
                           const DriverPlaces& places, ISatListManager* satellites,
                           std::string& why, const CallObserver& observer,
                           OperationProgress* progress)
{
    ComPtr<IDriverInfo> info;
    tell(observer, "CreateInstance");
    Status result = registry.create(clsid, info, &why);
    if (failed(result))
        return result;
    ComPtr<IDriverControl> control;
    tell(observer, "QueryInterface");
    result = query(info, control);
    if (failed(result)) {
        why = formatted("the driver lacks its control interface: %#x", statusCode(result));
        return result;
    }
    if (progress)
        progress->watch(info.get());
    const Bstr key(toUtf16(places.settingsKey + "\\drivers"));
    const Bstr user(driversBelow(places.userFolder));
    const Bstr common(driversBelow(places.commonFolder));
    tell(observer, "Initialize");
    result = control->Initialize(key.get(), user.get(), common.get());
    if (failed(result)) {
        why = formatted("Initialize failed: %#x", statusCode(result));
        return result;
    }
    tell(observer, "SetSatListManager");
    result = control->SetSatListManager(satellites);
    if (failed(result)) {
        why = formatted("SetSatListManager failed: %#x", statusCode(result));
        return result;
    }
    info_ = std::move(info);
    control_ = std::move(control);
    isShutDown_ = false;
    return result;
}

void DriverSession::shutDown()
{
    if (control_ && !isShutDown_) {
        isShutDown_ = true;
        control_->Shutdown();
    }
}

void DriverSession::close()
{
    shutDown();
    control_.reset();
    info_.reset();
}

std::string DriverProblem::message() const
{
    return step == Step::Create
               ? formatted("Failed to create driver instance: %08X", statusCode(status))
               : formatted("Failed to get driver name: %08X", statusCode(status));
}

void listDriver(const ClassRegistry& registry, const ComponentClass& driver, DriverList& list,
                const CallObserver& observer)
{
    std::string why;
    ComPtr<IDriverInfo> info;
    tell(observer, "CreateInstance");
    const Status created = registry.create(driver.clsid, info, &why);
    if (failed(created)) {
        list.problems.push_back({.step = DriverProblem::Step::Create,
                                 .status = created,
                                 .detail = driver.manifest.string() + ": " + why});
        return;
    }
    std::string name;
    tell(observer, "GetName");
    const Status named = receivedText(name, [&](char16_t** text) { return info->GetName(text); });
    if (failed(named)) {
        list.problems.push_back({.step = DriverProblem::Step::GetName,
                                 .status = named,
                                 .detail = driver.manifest.string()});
        return;
    }
    tell(observer, "QueryInterface");
    list.drivers.push_back(
        {.name = std::move(name), .clsid = driver.clsid, .readsFiles = canReadFiles(info.get())});
}

DriverList listDrivers(const ClassRegistry& registry)
{
    DriverList list;
    for (const ComponentClass& each : registry.classesOf(kDriverCategory))
        listDriver(registry, each, list);
    return list;
}

const DriverChoice* findDriver(const DriverList& list, std::string_view nameOrClass)
{
    const auto clsid = parseGuid(nameOrClass);
    const DriverChoice* found = nullptr;
    for (const DriverChoice& driver : list.drivers)
        if (clsid ? driver.clsid == *clsid : driver.name == nameOrClass)
            found = &driver;
    return found;
}

} // namespace tessaview
