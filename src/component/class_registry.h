#pragma once

#include "component/unknown.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tessaview {

/// The exported function of a component library that creates an object of one of its classes:
/// `int32_t TessaviewCreateInstance(const Guid* clsid, const Guid* iid, void** object)`.
constexpr const char* kComponentEntryPoint = "TessaviewCreateInstance";

/// A component class as its manifest (`*.component`, JSON: clsid, name, categories, library)
/// announces it, with "readsFiles" if it likes.
struct ComponentClass {
    Guid clsid;
    std::string name;
    std::vector<Guid> categories;
    bool readsFiles = false; ///< "readsFiles" of a driver: it can be pointed at captures
    std::filesystem::path sharedLibrary; ///< absolute
    std::filesystem::path manifest;      ///< the file this was read from
};

/// The component classes installed along a search path.
class ClassRegistry {
public:
    /// Reads every manifest of the folders, in their order and by name within a folder; a class
    /// that an earlier folder lists keeps its place, and the later one is reported. A broken
    /// manifest costs only itself: it is reported in `problems`. Folders that do not exist are
    /// passed over.
    explicit ClassRegistry(const std::vector<std::filesystem::path>& folders);

    const std::vector<ComponentClass>& classes() const { return classes_; }
    /// One line per manifest that could not be used, naming the file and what is wrong with it.
    const std::vector<std::string>& problems() const { return problems_; }

    /// A failure when no class was found and a folder that is there could not be read.
    Status searchStatus() const { return classes_.empty() ? folderStatus_ : status::kOk; }

    std::vector<ComponentClass> classesOf(const Guid& category) const;
    const ComponentClass* find(const Guid& clsid) const;

    /// Creates an object of the class and asks it for an interface. A library that cannot be
    /// loaded, lacks the entry point or answers with rubbish is that class's failure; `why`, if
    /// given, receives a sentence about it. Libraries stay loaded until the process ends.
    Status createInstance(const Guid& clsid, const Guid& iid, void** object,
                          std::string* why = nullptr) const;

    template <class Interface>
    Status create(const Guid& clsid, ComPtr<Interface>& out, std::string* why = nullptr) const
    {
        out.reset();
        void* object = nullptr;
        const Status result = createInstance(clsid, Interface::kId, &object, why);
        if (!failed(result))
            out = ComPtr<Interface>::adopt(static_cast<Interface*>(object));
        return result;
    }

private:
    void readManifest(const std::filesystem::path& file);

    std::vector<ComponentClass> classes_;
    std::vector<std::string> problems_;
    Status folderStatus_ = status::kOk;
};

/// Where manifests are looked for, in this order: the folders of $TESSAVIEW_COMPONENT_PATH
/// (separated by ':'), the components folder of the per-user data folder, the component folder of
/// this installation or build, found from the place of the running program.
std::vector<std::filesystem::path> componentSearchPath();

} // namespace tessaview
