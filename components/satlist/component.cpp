#include "component/unknown.h"
#include "components/satlist/sat_list_manager.h"

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewCreateInstance(const tessaview::Guid* clsid, const tessaview::Guid* iid, void** object)
{
    using namespace tessaview;
    return guarded([&]() -> Status {
        if (!clsid || !iid || !object)
            return status::kNullPointer;
        *object = nullptr;
        if (!(*clsid == kSatListManagerClass))
            return status::kClassNotRegistered;
        const auto manager = ComPtr<ISatListManager>::adopt(new SatListManager);
        return manager->QueryInterface(*iid, object);
    });
}
