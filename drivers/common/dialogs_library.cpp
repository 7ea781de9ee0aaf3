#include "drivers/common/dialogs_library.h"

#include <dlfcn.h>
#include <filesystem>

namespace tessaview {

namespace {

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

ShowDriverDialog DialogsLibrary::load(std::string& problem)
{
    const std::lock_guard lock(mutex_);
    if (show_)
        return show_;
    // Never closed: a toolkit does not survive the loss of its classes.
    void* const library = dlopen((ownFolder() / file_).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const symbol = library ? dlsym(library, kShowDriverDialog) : nullptr;
    if (!symbol)
        problem = loadingProblem();
    show_ = reinterpret_cast<ShowDriverDialog>(symbol);
    return show_;
}

Status DialogsLibrary::show(DriverDialog dialog, void* tuner, WindowHandle owner,
                            std::string& problem)
{
    const ShowDriverDialog shown = load(problem);
    return shown ? shown(dialog, tuner, owner) : status::kLibraryNotFound;
}

} // namespace tessaview
