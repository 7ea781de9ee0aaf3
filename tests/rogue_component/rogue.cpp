// A component library that lies: what it does wrong is chosen by the class it is asked for.

#include "component/guid.h"
#include "component/status.h"

#include <stdexcept>

extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewCreateInstance(const tessaview::Guid* clsid, const tessaview::Guid* /*iid*/, void** object)
{
    static int notAnObject = 0;
    switch (clsid->data1) {
    case 1: // success without an object
        return tessaview::status::kFalse;
    case 2: // failure with one
        *object = &notAnObject;
        return tessaview::status::kAccessDenied;
    default:
        throw std::runtime_error("an exception across the boundary");
    }
}
