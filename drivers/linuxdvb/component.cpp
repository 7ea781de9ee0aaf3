#include "component/create_instance.h"
#include "drivers/linuxdvb/linuxdvb_driver.h"

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewCreateInstance(const tessaview::Guid* clsid, const tessaview::Guid* iid, void** object)
{
    using namespace tessaview;
    return createInstanceOf<LinuxDvbDriver>(kLinuxDvbDriverClass, clsid, iid, object);
}
