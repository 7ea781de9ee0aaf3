#include "tests/satlist/loaded_manager.h"

#include <stdexcept>

namespace test {

using namespace tessaview;

namespace {

void require(Status result, const char* what)
{
    if (failed(result))
        throw std::runtime_error(std::string(what) + " failed");
}

} // namespace

LoadedManager::LoadedManager()
{
    const ClassRegistry registry({TESSAVIEW_BUILD_DIR "/lib/tessaview3/components"});
    std::string why;
    if (failed(registry.create(kSatListManagerClass, manager_, &why)))
        throw std::runtime_error("the satellite list manager cannot be created: " + why);
}

ComPtr<ISatellite> LoadedManager::satellite(const std::string& name) const
{
    ComPtr<ISatellite> out;
    require(getSatellite(get(), Bstr(name), out), "GetSatellite");
    return out;
}

std::vector<TransponderEntry> LoadedManager::transponders(const std::string& name) const
{
    std::vector<TransponderEntry> entries;
    require(readTransponders(*satellite(name).get(), entries), "reading the transponders");
    return entries;
}

ComPtr<ISatTransponder> LoadedManager::firstTransponder(ISatellite& satellite)
{
    ComPtr<IEnumSatTransponder> enumerator;
    require(enumTransponders(satellite, TransponderUse::Edit, enumerator), "EnumTransponders");
    ISatTransponder* first = nullptr;
    require(enumerator->Next(1, &first, nullptr), "Next");
    return ComPtr<ISatTransponder>::adopt(first);
}

void LoadedManager::put(const std::string& name, const std::vector<TransponderEntry>& transponders,
                        bool selected) const
{
    ComPtr<ISatellite> created;
    require(createSatellite(get(), Bstr(name), created), "CreateSatellite");
    require(created->put_Selected(selected ? 1 : 0), "put_Selected");
    for (const TransponderEntry& entry : transponders)
        require(addTransponder(*created.get(), entry), "adding a transponder");
    require(manager_->PutSatellite(created.get()), "PutSatellite");
}

std::vector<std::string> LoadedManager::names(bool selectedOnly) const
{
    ComPtr<IEnumSatellite> enumerator;
    require(enumSatellites(get(), selectedOnly, enumerator), "EnumSatellites");
    std::vector<std::string> names;
    for (const auto& satellite : Items(enumerator.get())) {
        Bstr name;
        require(satellite->get_Name(name.put()), "get_Name");
        names.push_back(name.utf8());
    }
    return names;
}

Status LoadedManager::load(const std::filesystem::path& file) const
{
    return manager_->Load(Bstr(file.string()).get());
}

Status LoadedManager::save(const std::filesystem::path& file) const
{
    return manager_->Save(Bstr(file.string()).get());
}

} // namespace test
