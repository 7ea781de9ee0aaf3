#include "component/class_registry.h"

#include "tests/support/temporary_folder.h"

#include <atomic>
#include <gmock/gmock.h>
#include <thread>

#include <gtest/gtest.h>

using namespace tessaview;
using test::TemporaryFolder;
using test::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::filesystem::path kLibraries = TESSAVIEW_BUILD_DIR "/tests/components";
constexpr Guid kSuccessWithoutObject = "{00000001-0000-0000-0000-000000000000}"_guid;
constexpr Guid kFailureWithObject = "{00000002-0000-0000-0000-000000000000}"_guid;
constexpr Guid kThrows = "{00000003-0000-0000-0000-000000000000}"_guid;
constexpr Guid kCategory = "{00000000-0000-0000-0000-0000000000CA}"_guid;

std::string manifest(const Guid& clsid, const std::string& name, const std::string& library)
{
    return R"({"clsid": ")" + toText(clsid) + R"(", "name": ")" + name + R"(", "categories": [")" +
           toText(kCategory) + R"("], "library": ")" + library + R"("})";
}

std::vector<std::string> namesOf(const ClassRegistry& registry)
{
    std::vector<std::string> names;
    for (const ComponentClass& each : registry.classes())
        names.push_back(each.name);
    return names;
}

TEST(ClassRegistry, takesClassesByFolderThenNameAndKeepsTheFirstOfAClass)
{
    const TemporaryFolder early;
    const TemporaryFolder late;
    writeFile(early / "b.component", manifest(kThrows, "early b", "b.so"));
    writeFile(early / "a.component", manifest(kFailureWithObject, "early a", "sub/../a.so"));
    writeFile(early / "c.json", manifest(kCategory, "no manifest", "c.so"));
    writeFile(late / "a.component", manifest(kThrows, "late copy of b", "b.so"));
    writeFile(late / "z.component", manifest(kSuccessWithoutObject, "late z", "/lib/z.so"));
    const ClassRegistry registry({early.path(), "/does/not/exist", late.path()});
    EXPECT_THAT(namesOf(registry), ElementsAre("early a", "early b", "late z"));
    EXPECT_THAT(registry.problems(),
                ElementsAre(testing::AllOf(HasSubstr((late / "a.component").string()),
                                           HasSubstr((early / "b.component").string()))));
    EXPECT_EQ(registry.classes()[0].sharedLibrary, early / "a.so");
    EXPECT_EQ(registry.classes()[2].sharedLibrary, "/lib/z.so");
    EXPECT_EQ(registry.classesOf(kCategory).size(), 3U);
    EXPECT_TRUE(registry.classesOf(kThrows).empty());
}

TEST(ClassRegistry, takesABrokenManifestForItselfAndReportsIt)
{
    const std::string category = R"({"clsid": "{00000000-0000-0000-0000-0000000000CA}", )";
    const std::pair<std::string, const char*> cases[] = {
        {"", "parse error"},
        {"[1, 2]", "not a JSON object"},
        {"{\"clsid\": \"{1}\"", "parse error"},
        {R"({"clsid": 7})", "lacks the text 'clsid'"},
        {R"({"clsid": "{1}"})", "'{1}' is no identifier"},
        {category + R"("name": "x"})", "lacks the list 'categories'"},
        {category + R"("name": "x", "categories": [], "library": ""})", "lacks the text 'library'"},
        {category + R"("name": "x", "categories": [null], "library": "x"})", "must hold texts"},
        {std::string(70'000, ' ') + "{}", "too large"},
        {std::string(60'000, '['), "parse error"},
    };
    for (const auto& [content, complaint] : cases) {
        SCOPED_TRACE(complaint);
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder / "a.component");
        writeFile(folder / "broken.component", content);
        writeFile(folder / "good.component", manifest(kThrows, "good", "good.so"));
        const ClassRegistry registry({folder.path()});
        EXPECT_THAT(namesOf(registry), ElementsAre("good"));
        EXPECT_THAT(registry.problems(),
                    ElementsAre(HasSubstr("not a regular file"),
                                testing::AllOf(HasSubstr((folder / "broken.component").string()),
                                               HasSubstr(complaint))));
    }
}

struct Failure {
    Guid clsid;
    std::string sharedLibrary;
    Status status;
    const char* reason;
};

TEST(ClassRegistry, turnsWhatALibraryDoesWrongIntoThatClassesFailure)
{
    const std::string rogue = kLibraries / "rogue_component.so";
    for (const Failure& failure :
         {Failure{kSuccessWithoutObject, rogue, status::kUnexpected, "without creating an object"},
          Failure{kFailureWithObject, rogue, status::kAccessDenied, "did not create an object"},
          Failure{kThrows, rogue, status::kUnexpected, "did not create an object"},
          Failure{kThrows, kLibraries / "mute_component.so", status::kClassNotRegistered,
                  "lacks the entry point TessaviewCreateInstance"},
          Failure{kThrows, "gone.so", status::kLibraryNotFound, "gone.so"},
          Failure{kThrows, "rubbish.so", status::kLibraryNotFound, "rubbish.so"}}) {
        const TemporaryFolder folder;
        writeFile(folder / "rubbish.so", "not a library");
        writeFile(folder / "x.component", manifest(failure.clsid, "x", failure.sharedLibrary));
        const ClassRegistry registry({folder.path()});
        int before = 0;
        void* object = &before;
        std::string why;
        EXPECT_EQ(registry.createInstance(failure.clsid, IUnknown::kId, &object, &why),
                  failure.status);
        EXPECT_EQ(object, nullptr);
        EXPECT_THAT(why, HasSubstr(failure.reason));
    }
}

TEST(ClassRegistry, saysThatAClassIsNotInstalled)
{
    const ClassRegistry registry({});
    ComPtr<IUnknown> object;
    std::string why;
    EXPECT_EQ(registry.create(kThrows, object, &why), status::kClassNotRegistered);
    EXPECT_THAT(why, HasSubstr(toText(kThrows)));
    EXPECT_EQ(registry.createInstance(kThrows, IUnknown::kId, nullptr), status::kNullPointer);
}

TEST(ClassRegistry, createsObjectsOnSeveralThreadsAtOnce)
{
    const ClassRegistry registry({kLibraries});
    ASSERT_EQ(registry.classes().size(), 1U);
    const Guid clsid = registry.classes()[0].clsid;
    std::vector<std::jthread> threads;
    std::atomic<int> created = 0;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int j = 0; j < 100; ++j) {
                ComPtr<IUnknown> object;
                created += failed(registry.create(clsid, object)) ? 0 : 1;
            }
        });
    threads.clear();
    EXPECT_EQ(created, 400);
}

TEST(ComponentSearchPath, hasTheGivenFoldersThenTheUsersThenTheInstallations)
{
    const std::filesystem::path own =
        std::filesystem::path(TESSAVIEW_BUILD_DIR) / "lib/tessaview3/components";
    const test::Environment home("HOME", "/home/of/mine");
    {
        const test::Environment given("TESSAVIEW_COMPONENT_PATH", "/one::/two:");
        const test::Environment data("XDG_DATA_HOME", "/data");
        EXPECT_THAT(componentSearchPath(),
                    ElementsAre("/one", "/two", "/data/Tessaview 3/components", own));
    }
    const test::Environment given("TESSAVIEW_COMPONENT_PATH", nullptr);
    const test::Environment data("XDG_DATA_HOME", "relative");
    EXPECT_THAT(componentSearchPath(),
                ElementsAre("/home/of/mine/.local/share/Tessaview 3/components", own));
}

} // namespace
