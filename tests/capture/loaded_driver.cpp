#include "tests/capture/loaded_driver.h"

#include "component/bstr.h"
#include "component/path_text.h"
#include "component/task_memory.h"
#include "driver/driver_session.h"
#include "tests/support/tests.h"

namespace test {

TableRequest request(unsigned pid, unsigned tableId, CollectionMode mode)
{
    TableRequest out{};
    out.PID = pid;
    out.table_id = static_cast<std::uint8_t>(tableId);
    out.collection_mode = static_cast<std::uint32_t>(mode);
    return out;
}

TableRequest requestOf(unsigned pid, unsigned tableId, unsigned extension)
{
    TableRequest out = request(pid, tableId);
    out.match_table_id_extension = 1;
    out.table_id_extension = static_cast<std::uint16_t>(extension);
    return out;
}

LoadedDriver::LoadedDriver() : config_("XDG_CONFIG_HOME", folder_.path().c_str())
{
    const ClassRegistry registry({TESSAVIEW_BUILD_DIR "/lib/tessaview3/components"});
    const DriverList list = listDrivers(registry);
    const DriverChoice* const choice = findDriver(list, "Captured transport streams");
    std::string why = "it is not listed";
    if (!choice || failed(registry.create(choice->clsid, info_, &why)))
        throw std::runtime_error("the capture driver cannot be loaded: " + why);
    if (failed(initialize()))
        throw std::runtime_error("the capture driver cannot be initialised");
}

LoadedDriver::~LoadedDriver()
{
    as<IDriverControl>()->Shutdown();
}

Status LoadedDriver::initialize() const
{
    const Bstr key(std::string_view("drivers"));
    const Bstr data(folder().string());
    return as<IDriverControl>()->Initialize(key.get(), data.get(), data.get());
}

std::filesystem::path LoadedDriver::file(const std::string& name, const Bytes& content) const
{
    const std::filesystem::path path = folder() / name;
    std::filesystem::create_directories(path.parent_path());
    writeFile(path, std::string(content.begin(), content.end()));
    return path;
}

std::string LoadedDriver::use(const std::vector<std::filesystem::path>& paths, Status* status) const
{
    std::vector<Bstr> texts;
    std::vector<const char16_t*> pointers;
    for (const auto& path : paths)
        texts.emplace_back(std::string_view(pathText(path)));
    for (const Bstr& text : texts)
        pointers.push_back(text.get());
    Bstr problem;
    const Status result = as<ISourceFiles>()->SetSourceFiles(
        static_cast<std::uint32_t>(pointers.size()), pointers.data(), problem.put());
    if (status)
        *status = result;
    return problem.utf8();
}

std::vector<std::vector<Bytes>> LoadedDriver::read(const std::vector<TableRequest>& requests) const
{
    std::vector<SectionList> lists(requests.size());
    const Status status = as<ISectionReader>()->ReadTables(
        static_cast<std::uint32_t>(requests.size()), requests.data(), 30, lists.data());
    if (failed(status))
        throw std::runtime_error("ReadTables failed");
    std::vector<std::vector<Bytes>> answers;
    for (const SectionList& list : lists) {
        auto& answer = answers.emplace_back();
        for (std::int32_t i = 0; i < list.count; ++i) {
            const TaskMemPtr<std::uint8_t> section(list.sections[i]);
            const std::size_t size = 3U + ((section.get()[1] & 0x0FU) << 8 | section.get()[2]);
            answer.emplace_back(section.get(), section.get() + size);
        }
        TessaviewTaskMemFree(list.sections);
    }
    return answers;
}

std::vector<Bytes> LoadedDriver::sectionsOf(const Bytes& stream, const TableRequest& request) const
{
    const std::string problem = use({file("stream.ts", stream)});
    if (!problem.empty())
        throw std::runtime_error(problem);
    return read({request}).front();
}

unsigned LoadedDriver::stream() const
{
    const auto sections = read({request(0x0000, 0x00)}).front();
    return sections.empty() ? 0U : sections.front()[3] * 256U + sections.front()[4];
}

bool LoadedDriver::isLocked() const
{
    std::int32_t locked = -1;
    return !failed(as<ITunerStatus>()->IsLocked(&locked)) && locked != 0;
}

unsigned LoadedDriver::tunerType() const
{
    std::uint16_t type = 0;
    return failed(as<IDriverControl>()->GetTunerType(&type)) ? 0 : type;
}

std::string LoadedDriver::statusText() const
{
    Bstr text;
    as<ITunerStatus>()->GetStatusText(text.put());
    return text.utf8();
}

} // namespace test
