#include "satlist/list_storage.h"

#include "component/bstr.h"
#include "satlist/default_list.h"

namespace tessaview {

Status loadSatelliteList(ISatListManager& manager, const std::filesystem::path& file)
{
    const Status result = manager.Load(Bstr(file.string()).get());
    if (failed(result))
        fillDefaultList(manager);
    return result;
}

Status saveSatelliteList(ISatListManager& manager, const std::filesystem::path& file)
{
    return manager.Save(Bstr(file.string()).get());
}

} // namespace tessaview
