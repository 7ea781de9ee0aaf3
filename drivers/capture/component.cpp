#include "component/unknown.h"
#include "drivers/capture/capture_driver.h"

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewCreateInstance(const tessaview::Guid* clsid, const tessaview::Guid* iid, void** object)
{
    using namespace tessaview;
    return guarded([&]() -> Status {
        if (!clsid || !iid || !object)
            return status::kNullPointer;
        *object = nullptr;
        if (!(*clsid == kCaptureDriverClass))
            return status::kClassNotRegistered;
        const auto driver = ComPtr<IDriverInfo>::adopt(new CaptureDriver);
        return driver->QueryInterface(*iid, object);
    });
}
