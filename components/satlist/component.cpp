#include "component/create_instance.h"
#include "components/satlist/sat_list_manager.h"

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewCreateInstance(const tessaview::Guid* clsid, const tessaview::Guid* iid, void** object)
{
    using namespace tessaview;
    return createInstanceOf<SatListManager>(kSatListManagerClass, clsid, iid, object);
}
