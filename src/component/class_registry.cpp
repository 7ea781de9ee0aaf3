#include "component/class_registry.h"

#include <algorithm>
#include <dlfcn.h>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace tessaview {

namespace {

using Json = nlohmann::json;
using EntryPoint = Status (*)(const Guid* clsid, const Guid* iid, void** object);

constexpr std::size_t kMaxManifestBytes = 1U << 16U;

std::string contentOf(const std::filesystem::path& file)
{
    if (!std::filesystem::is_regular_file(file))
        throw std::runtime_error("is not a regular file");
    std::ifstream in(file, std::ios::binary);
    std::string content(kMaxManifestBytes + 1, '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!in.eof() && (!in || in.gcount() > 0))
        throw std::runtime_error(in ? "is too large for a manifest" : "cannot be read");
    content.resize(static_cast<std::size_t>(in.gcount()));
    return content;
}

std::string textOf(const Json& manifest, const char* member)
{
    const auto found = manifest.find(member);
    if (found == manifest.end() || !found->is_string() || found->get<std::string>().empty())
        throw std::runtime_error(std::string("lacks the text '") + member + "'");
    return found->get<std::string>();
}

Guid guidOf(const std::string& text)
{
    const auto guid = parseGuid(text);
    if (!guid)
        throw std::runtime_error("'" + text + "' is no identifier of the form {8-4-4-4-12}");
    return *guid;
}

std::vector<Guid> categoriesOf(const Json& manifest)
{
    const auto found = manifest.find("categories");
    if (found == manifest.end() || !found->is_array())
        throw std::runtime_error("lacks the list 'categories'");
    std::vector<Guid> categories;
    for (const Json& category : *found) {
        if (!category.is_string())
            throw std::runtime_error("'categories' must hold texts only");
        categories.push_back(guidOf(category.get<std::string>()));
    }
    return categories;
}

ComponentClass parsedManifest(const std::filesystem::path& file)
{
    const Json manifest = Json::parse(contentOf(file));
    if (!manifest.is_object())
        throw std::runtime_error("is not a JSON object");
    const std::filesystem::path path = std::filesystem::absolute(file).lexically_normal();
    return {.clsid = guidOf(textOf(manifest, "clsid")),
            .name = textOf(manifest, "name"),
            .categories = categoriesOf(manifest),
            .readsFiles = manifest.value("readsFiles", Json()) == true,
            .sharedLibrary = (path.parent_path() / textOf(manifest, "library")).lexically_normal(),
            .manifest = path};
}

std::vector<std::filesystem::path> manifestsIn(const std::filesystem::path& folder,
                                               std::error_code& failure)
{
    std::vector<std::filesystem::path> files;
    std::filesystem::directory_iterator entry(folder, failure);
    while (!failure && entry != std::filesystem::directory_iterator()) {
        if (entry->path().extension() == ".component")
            files.push_back(entry->path());
        entry.increment(failure);
    }
    if (failure == std::errc::no_such_file_or_directory)
        failure.clear();
    std::sort(files.begin(), files.end());
    return files;
}

EntryPoint entryPointOf(const std::filesystem::path& library, std::string& why, Status& result)
{
    // Never closed: objects of the library may outlive every caller's knowledge of it.
    void* const handle = ::dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* const reason = ::dlerror(); // NOLINT(concurrency-mt-unsafe): per thread here
        why = std::string("the library cannot be loaded: ") + (reason ? reason : "no reason given");
        result = status::kLibraryNotFound;
        return nullptr;
    }
    const auto entry = reinterpret_cast<EntryPoint>(::dlsym(handle, kComponentEntryPoint));
    if (!entry) {
        why = library.string() + " lacks the entry point " + kComponentEntryPoint;
        result = status::kClassNotRegistered;
    }
    return entry;
}

} // namespace

ClassRegistry::ClassRegistry(const std::vector<std::filesystem::path>& folders)
{
    for (const std::filesystem::path& folder : folders) {
        std::error_code failure;
        for (const std::filesystem::path& file : manifestsIn(folder, failure))
            readManifest(file);
        if (failure) {
            problems_.push_back(folder.string() + ": " + failure.message());
            folderStatus_ =
                failure == std::errc::permission_denied ? status::kAccessDenied : status::kFail;
        }
    }
}

void ClassRegistry::readManifest(const std::filesystem::path& file)
{
    try {
        ComponentClass found = parsedManifest(file);
        if (const ComponentClass* const earlier = find(found.clsid))
            problems_.push_back(file.string() + ": its class " + toText(found.clsid) +
                                " is that of " + earlier->manifest.string() + ", which is used");
        else
            classes_.push_back(std::move(found));
    } catch (const std::exception& problem) {
        problems_.push_back(file.string() + ": " + problem.what());
    }
}

std::vector<ComponentClass> ClassRegistry::classesOf(const Guid& category) const
{
    std::vector<ComponentClass> found;
    std::copy_if(classes_.begin(), classes_.end(), std::back_inserter(found),
                 [&](const ComponentClass& each) {
                     return std::find(each.categories.begin(), each.categories.end(), category) !=
                            each.categories.end();
                 });
    return found;
}

const ComponentClass* ClassRegistry::find(const Guid& clsid) const
{
    const auto found =
        std::find_if(classes_.begin(), classes_.end(),
                     [&](const ComponentClass& each) { return each.clsid == clsid; });
    return found == classes_.end() ? nullptr : &*found;
}

Status ClassRegistry::createInstance(const Guid& clsid, const Guid& iid, void** object,
                                     std::string* why) const
{
    if (!object)
        return status::kNullPointer;
    *object = nullptr;
    std::string ignored;
    std::string& reason = why ? *why : ignored;
    const ComponentClass* const found = find(clsid);
    if (!found) {
        reason = "no component of the class " + toText(clsid) + " is installed";
        return status::kClassNotRegistered;
    }
    Status result = status::kOk;
    const EntryPoint enter = entryPointOf(found->sharedLibrary, reason, result);
    if (!enter)
        return result;
    void* created = nullptr;
    result = guarded([&] { return enter(&clsid, &iid, &created); });
    if (failed(result)) {
        reason = found->sharedLibrary.string() + " did not create an object";
        return result;
    }
    if (!created) {
        reason = found->sharedLibrary.string() + " reported success without creating an object";
        return status::kUnexpected;
    }
    *object = created;
    return result;
}

} // namespace tessaview
