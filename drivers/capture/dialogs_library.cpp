#include "drivers/capture/dialogs_library.h"

#include "drivers/capture/capture_tuner.h"

#include <dlfcn.h>
#include <filesystem>

namespace tessaview {

namespace {

constexpr const char* kLibrary = "capture_dialogs.so";

/// The folder of the library that this code is in.
std::filesystem::path ownFolder()
{
    Dl_info info{};
    static const char inThisLibrary = 0;
    if (dladdr(&inThisLibrary, &info) == 0 || !info.dli_fname)
        return {};
    return std::filesystem::path(info.dli_fname).parent_path();
}

std::string loadingProblem()
{
    const char* const text =
        dlerror(); // NOLINT(concurrency-mt-unsafe): the C library keeps one per thread
    return std::string("the dialogs cannot be opened: ") + (text ? text : "unknown reason");
}

} // namespace

bool DialogsLibrary::load(CaptureTuner& tuner)
{
    if (show_)
        return true;
    // Never closed: a toolkit does not survive the loss of its classes.
    void* const library = dlopen((ownFolder() / kLibrary).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const symbol = library ? dlsym(library, kShowCaptureDialog) : nullptr;
    if (!symbol)
        tuner.report(loadingProblem());
    show_ = reinterpret_cast<ShowCaptureDialog>(symbol);
    return symbol != nullptr;
}

Status DialogsLibrary::show(CaptureDialog dialog, CaptureTuner& tuner, WindowHandle owner)
{
    ShowCaptureDialog shown = nullptr;
    {
        const std::lock_guard lock(mutex_);
        if (!load(tuner))
            return status::kLibraryNotFound;
        shown = show_;
    }
    return shown(dialog, &tuner, owner);
}

} // namespace tessaview
