#include "satlist/list_storage.h"

#include "component/bstr.h"
#include "component/received_text.h"
#include "satlist/default_list.h"

namespace tessaview {

namespace {

/// Why the last call failed, as far as the manager tells.
void askWhy(ISatListManager& manager, std::string* why)
{
    ComPtr<ISatListFile> known;
    if (why && !failed(query(&manager, known)))
        receivedText(*why, [&](char16_t** text) { return known->get_Problem(text); });
}

} // namespace

Status loadSatelliteList(ISatListManager& manager, const std::filesystem::path& file,
                         std::string* why)
{
    const Bstr name(file.string());
    const Status result = manager.Load(name.get());
    if (!failed(result))
        return result;
    askWhy(manager, why);
    fillDefaultList(manager);
    if (ComPtr<ISatListFile> known; !failed(query(&manager, known)))
        known->TakeAsBase(name.get());
    return result;
}

Status saveSatelliteList(ISatListManager& manager, const std::filesystem::path& file,
                         std::string* why)
{
    const Status result = manager.Save(Bstr(file.string()).get());
    if (failed(result))
        askWhy(manager, why);
    return result;
}

} // namespace tessaview
