#include "driver/source_files.h"

#include "component/bstr.h"
#include "component/path_text.h"

namespace tessaview {

bool canReadFiles(IUnknown* driver)
{
    ComPtr<ISourceFiles> files;
    return !failed(query(driver, files));
}

Status useSourceFiles(IUnknown* driver, const std::vector<std::string>& paths,
                      std::string& problems)
{
    problems.clear();
    ComPtr<ISourceFiles> files;
    const Status found = query(driver, files);
    if (failed(found))
        return found;
    std::vector<Bstr> texts;
    std::vector<const char16_t*> pointers;
    texts.reserve(paths.size());
    pointers.reserve(paths.size());
    for (const std::string& path : paths)
        pointers.push_back(texts.emplace_back(std::string_view(pathText(path))).get());
    Bstr problem;
    const Status result = files->SetSourceFiles(static_cast<std::uint32_t>(pointers.size()),
                                                pointers.data(), problem.put());
    problems = problem.utf8();
    return result;
}

} // namespace tessaview
