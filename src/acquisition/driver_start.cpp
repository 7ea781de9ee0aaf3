#include "acquisition/driver_start.h"

#include "driver/source_files.h"
#include "log/log_file.h"
#include "platform/format.h"

#include <algorithm>

namespace tessaview {

/// The class of the first driver that can be pointed at files. Those whose manifest says so are
/// asked first, so that no other need be created.
std::optional<Guid> DriverStart::classForFiles(const CallObserver& observer) const
{
    DriverList list;
    std::vector<ComponentClass> classes = registry->classesOf(kDriverCategory);
    std::stable_partition(classes.begin(), classes.end(),
                          [](const ComponentClass& each) { return each.readsFiles; });
    for (const ComponentClass& each : classes) {
        if (each.clsid == leftOut)
            continue;
        LogPrint(g_log, log_level::kInformation, "asking the driver %s %s whether it reads files",
                 each.name.c_str(), toText(each.clsid).c_str());
        listDriver(*registry, each, list, marking(mark, each.clsid, each.name, observer));
        if (!list.drivers.empty() && list.drivers.back().readsFiles)
            return list.drivers.back().clsid;
    }
    return std::nullopt;
}

void DriverStart::run(const CallObserver& observer)
{
    start(observer);
    if (mark)
        mark->clear();
}

void DriverStart::start(const CallObserver& tellOperation)
{
    const auto chosen =
        captures.empty() || !clsid.empty() ? parseGuid(clsid) : classForFiles(tellOperation);
    if (!chosen) {
        status = status::kClassNotRegistered;
        if (!captures.empty() && clsid.empty())
            why = "no driver that can read captures is installed";
        else if (clsid.empty())
            why = "no driver was chosen";
        else
            why = "the stored choice '" + clsid + "' is no class identifier";
        return;
    }
    clsid = toText(*chosen);
    LogPrint(g_log, log_level::kInformation, "starting the driver %s %s", driverName().c_str(),
             clsid.c_str());
    const CallObserver observer = marking(mark, *chosen, driverName(), tellOperation);
    auto opened = std::make_shared<DriverSession>();
    status = opened->open(*registry, *chosen, places, satellites.get(), why, observer, &progress);
    if (failed(status))
        return;
    if (!captures.empty()) {
        observer(kLooksAtCaptures);
        captured.status = useSourceFiles(opened->driver(), captures, captured.problems);
    }
    session = std::move(opened);
}

std::string DriverStart::driverName() const
{
    const auto chosen = parseGuid(clsid);
    const ComponentClass* const found = chosen ? registry->find(*chosen) : nullptr;
    return found ? found->name : clsid;
}

std::string DriverStart::problem(const std::string& operation) const
{
    std::string text = driverName();
    if (text != clsid)
        text += " " + clsid;
    text += (text.empty() ? "" : "\n") + why;
    // The other operations' failures carry their status already.
    if (operation == "CreateInstance")
        text += formatted(" (CreateInstance: %#x)", statusCode(status));
    if (captures.empty())
        text += "\nThe next start asks for a driver again.";
    return text;
}

void CaptureChange::run(const CallObserver& observer)
{
    progress.watch(session->driver());
    observer(kLooksAtCaptures);
    result.status = useSourceFiles(session->driver(), captures, result.problems);
}

} // namespace tessaview
