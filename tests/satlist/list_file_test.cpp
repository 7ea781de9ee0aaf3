#include "satlist/list_storage.h"
#include "tests/satlist/loaded_manager.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <limits>
#include <sys/stat.h>
#include <thread>

#include <gtest/gtest.h>

using namespace tessaview;
using test::LoadedManager;
using test::readFile;
using test::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

class ListFile : public testing::Test {
protected:
    const test::TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_ / "below/satlist.xml";
    const LoadedManager manager_;

    void write(std::string_view content) const
    {
        std::filesystem::create_directories(file_.parent_path());
        writeFile(file_, content);
    }

    std::vector<std::string> filesThere() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path()))
            names.push_back(entry.path().filename());
        return names;
    }
};

TEST_F(ListFile, bringsBackWhatWasSaved)
{
    const std::string odd[]{
        "<&>\"' ]]>",   " leading and trailing ", "a", "A", "Türksat 42°E \xF0\x9F\x9B\xB0",
        "\xEF\xBF\xBD", std::string(1000, 'x')};
    const std::vector<TransponderEntry> extremes{
        {0, 0, kLargest, kLargest, kLargest, kLargest, kLargest},
        {0xFFFF, 0xFFFF, kSmallest, kSmallest, kSmallest, kSmallest, kSmallest},
        {0, 0xFFFF, -1, 0, 0, 0, 0, {0, 1, 0, 0, 0}},
        {1, 0xFFFF, -1, 0, 0, 0, 0, {1, 4, 2, 1, 255}},
        {2, 0xFFFF, -1, 0, 0, 0, 0, {.streamId = 7}}};
    for (const std::string& name : odd)
        manager_.put(name, extremes, name.size() % 2 == 0);
    const mode_t mask = umask(0);
    ASSERT_EQ(manager_.save(file_), status::kOk);
    umask(mask);
    EXPECT_EQ(std::filesystem::status(file_).permissions(), std::filesystem::perms(0666));

    const LoadedManager again;
    ASSERT_EQ(again.load(file_), status::kOk);
    EXPECT_THAT(again.names(), testing::ElementsAreArray(odd));
    EXPECT_EQ(again.names(true), manager_.names(true));
    for (const std::string& name : odd)
        EXPECT_EQ(again.transponders(name), extremes) << name;
}

TEST_F(ListFile, isTheDocumentedFormat)
{
    manager_.put("Hotbird 13E", {{0x13E, 0x2B5C, 1071900, 1, 275000, 3, 1}});
    const auto satellite = manager_.satellite("Hotbird 13E");
    satellite->put_AddedByUser(1);
    manager_->PutSatellite(satellite.get());
    ASSERT_EQ(manager_.save(file_), status::kOk);
    EXPECT_EQ(readFile(file_), R"(<?xml version="1.0" encoding="UTF-8"?>
<satellites version="1">
  <satellite name="Hotbird 13E" selected="1" added="1">
    <transponder nid="0x013E" tsid="0x2B5C" frequency="1071900" polarization="1" symbolrate="275000" fec="3" flag="1" />
  </satellite>
</satellites>
)");
}

TEST_F(ListFile, hasWhatDvbS2NeedsWhereItIsGiven)
{
    struct Case {
        const char* attributes;
        S2Parameters values;
        const char* saved; ///< after the system was put
    };
    const std::vector<Case> cases{
        {"", {}, R"(flag="0" system="1" />)"},
        {R"(streamid="0x10" pilot="0" system="0")",
         {.system = 0, .pilot = 0, .streamId = 16},
         R"(flag="0" system="1" pilot="0" streamid="16" />)"},
        {R"(system="2" modulation="0" rolloff="3" pilot="-1" streamid="256")",
         {},
         R"(system="1" modulation="0" rolloff="3" pilot="-1" streamid="256" />)"},
        {R"(modulation="8PSK" rolloff="")", {}, R"(system="1" modulation="8PSK" rolloff="" />)"},
    };
    for (const Case& each : cases) {
        write(R"(<satellites version="1"><satellite name="a"><transponder nid="1" tsid="2" )" +
              std::string(each.attributes) + "/></satellite></satellites>");
        const LoadedManager manager;
        ASSERT_EQ(manager.load(file_), status::kOk);
        const auto entries = manager.transponders("a");
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_EQ(entries[0].s2, each.values) << each.attributes;
        const auto satellite = manager.satellite("a");
        const auto transponder = LoadedManager::firstTransponder(*satellite.get());
        ComPtr<ISatTransponderS2> s2;
        ASSERT_EQ(query(transponder, s2), status::kOk);
        EXPECT_EQ(s2->put_System(1), status::kOk);
        satellite->RemoveTransponder(1, 2);
        satellite->AddTransponder(transponder.get());
        manager->PutSatellite(satellite.get());
        ASSERT_EQ(manager.save(file_), status::kOk);
        EXPECT_THAT(readFile(file_), HasSubstr(each.saved));
    }
}

TEST_F(ListFile, keepsWhatItDoesNotKnow)
{
    write(R"(<satellites version="1" by="hand">
 <satellite name="a" position="13.0E">
  <transponder nid="1" tsid="2" frequency="3" modulation="8PSK"><pilot>on &amp; off</pilot></transponder>
  <transponder nid="1" tsid="2" frequency="4"/>
  <transponder nid="1" tsid="65536"/>
  <transponder tsid="3"/>
  <note/>
 </satellite>
 <satellite name="b" selected="maybe"/>
 <satellite name="a"><transponder nid="9" tsid="9"/></satellite>
 <satellite/>
 <multiplex x="1"/>
</satellites>)");
    ASSERT_EQ(manager_.load(file_), status::kOk);
    EXPECT_THAT(manager_.names(), ElementsAre("a"));
    EXPECT_THAT(manager_.transponders("a"),
                ElementsAre(TransponderEntry{.nid = 1, .tsid = 2, .frequency = 3}));
    const auto satellite = manager_.satellite("a");
    satellite->put_Selected(1);
    manager_->PutSatellite(satellite.get());
    ASSERT_EQ(manager_.save(file_), status::kOk);
    const std::string saved = readFile(file_);
    for (const char* part :
         {R"(by="hand")", R"(position="13.0E")", R"(modulation="8PSK")", R"(on &amp; off)",
          R"(frequency="4")", R"(tsid="65536")", R"(<transponder tsid="3")", "<note", R"("maybe")",
          R"(nid="9")", "<satellite/>", R"(<multiplex x="1")", R"(selected="1")"})
        EXPECT_THAT(saved, HasSubstr(part));
    // What is kept stays the same from one save to the next.
    const LoadedManager again;
    ASSERT_EQ(again.load(file_), status::kOk);
    ASSERT_EQ(again.save(file_), status::kOk);
    EXPECT_EQ(readFile(file_), saved);
}

struct BrokenFile {
    const char* name;
    std::string content;
};

class Broken : public ListFile, public testing::WithParamInterface<BrokenFile> {};

TEST_P(Broken, fileIsLeftAloneByLoadAndSetAsideBySave)
{
    write(GetParam().content);
    manager_.put("kept", {});
    EXPECT_EQ(manager_.load(file_), status::kInvalidData);
    EXPECT_THAT(manager_.names(), ElementsAre("kept"));
    EXPECT_EQ(readFile(file_), GetParam().content);
    EXPECT_EQ(manager_.save(file_), status::kOk);
    EXPECT_EQ(readFile(file_.string() + ".broken-1"), GetParam().content);
    const LoadedManager again;
    EXPECT_EQ(again.load(file_), status::kOk);
    EXPECT_THAT(again.names(), ElementsAre("kept"));
}

INSTANTIATE_TEST_SUITE_P(
    SatelliteList, Broken,
    testing::Values(BrokenFile{"noMarkup", "rubbish"},
                    BrokenFile{"cutShort", "<satellites version=\"1\"><satellite name=\"a\">"},
                    BrokenFile{"noVersion", "<satellites/>"},
                    BrokenFile{"laterVersion", "<satellites version=\"2\"/>"},
                    BrokenFile{"otherRoot", "<list version=\"1\"/>"},
                    BrokenFile{"noText", std::string("\0\xFF\xFE", 3)},
                    BrokenFile{"tooLarge", "<satellites version=\"1\">" +
                                               std::string((16U << 20U) + 1, ' ') +
                                               "</satellites>"}),
    [](const auto& each) { return each.param.name; });

TEST_F(ListFile, thatIsMissingOrEmptyIsNoList)
{
    EXPECT_EQ(manager_.load(file_), status::kNotFound);
    write("");
    EXPECT_EQ(manager_.load(file_), status::kNotFound);
    EXPECT_EQ(manager_.save(file_), status::kOk);
    EXPECT_THAT(filesThere(), UnorderedElementsAre("satlist.xml", "satlist.xml.lock"));
}

TEST_F(ListFile, thatCannotBeReadOrWrittenIsAFailure)
{
    std::filesystem::create_directories(file_);
    EXPECT_EQ(manager_.load(file_), status::kAccessDenied);
    EXPECT_EQ(manager_.save(file_), status::kAccessDenied);
    std::string why;
    EXPECT_EQ(saveSatelliteList(manager_.get(), "/proc/none/satlist.xml", &why),
              status::kAccessDenied);
    EXPECT_THAT(why, HasSubstr("No such file or directory"));
    // It may hold a list, so it is not set aside for another.
    std::filesystem::remove(file_);
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    EXPECT_EQ(manager_.save(file_), status::kAccessDenied);
    EXPECT_TRUE(std::filesystem::is_fifo(file_));
}

TEST_F(ListFile, growsOnlyByWhatIsAdded)
{
    std::string content = "<satellites version=\"1\"";
    for (int i = 0; i < 200'000; ++i)
        content += " a" + std::to_string(i) + "=\"\"";
    content += ">";
    for (int i = 0; i < 50'000; ++i)
        content += "<x>";
    content += " text\n";
    for (int i = 0; i < 50'000; ++i)
        content += "</x>";
    write(content + "</satellites>");
    ASSERT_EQ(manager_.load(file_), status::kOk);
    ASSERT_EQ(manager_.save(file_), status::kOk);
    const std::string saved = readFile(file_);
    EXPECT_LT(saved.size(), content.size() + 100);
    EXPECT_THAT(saved, HasSubstr("<x> text\n</x>"));
}

TEST_F(ListFile, isRefusedWhenItCouldNotBeSaved)
{
    std::string large = "<satellites version=\"1\">";
    for (int i = 0; i < 200'000; ++i) {
        if (i % 50'000 == 0)
            large += (i > 0 ? "</satellite>" : "") + std::string("<satellite name=\"") +
                     std::to_string(i) + "\">";
        large += "<transponder nid=\"1\" tsid=\"" + std::to_string(i % 50'000) + "\"/>";
    }
    write(large + "</satellite></satellites>");
    std::string why;
    EXPECT_EQ(loadSatelliteList(manager_.get(), file_, &why), status::kInvalidData);
    EXPECT_THAT(why, HasSubstr("more than can be saved again"));
    std::filesystem::remove(file_);
    for (int i = 1000; i < 4500; ++i)
        manager_.put(std::to_string(i) + std::string(990, '&'), {});
    EXPECT_EQ(saveSatelliteList(manager_.get(), file_, &why), status::kInvalidArgument);
    EXPECT_THAT(why, HasSubstr("would become larger than 16 MiB"));
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(ListFile, thatALinkLeadsToStaysWhereItIs)
{
    write("");
    const std::filesystem::path link = folder_ / "link.xml";
    std::filesystem::create_symlink(file_, link);
    manager_.put("a", {});
    ASSERT_EQ(manager_.save(link), status::kOk);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_THAT(readFile(file_), HasSubstr("\"a\""));
}

TEST_F(ListFile, joinsTheChangesOfTwoManagers)
{
    for (const char* name : {"both remove", "I remove", "you remove", "I change", "you change",
                             "both change", "I change, you remove", "I remove, you change"})
        manager_.put(name, {});
    ASSERT_EQ(manager_.save(file_), status::kOk);
    const LoadedManager other;
    ASSERT_EQ(other.load(file_), status::kOk);
    const auto remove = [](const LoadedManager& from, std::string_view name) {
        EXPECT_EQ(from->RemoveSatellite(Bstr(name).get()), status::kOk);
    };
    for (const char* name : {"both remove", "I remove", "I remove, you change"})
        remove(manager_, name);
    for (const char* name : {"both remove", "you remove", "I change, you remove"})
        remove(other, name);
    for (const char* name : {"I change", "both change", "I change, you remove", "I add"})
        manager_.put(name, {{.tsid = 1}});
    for (const char* name : {"you change", "both change", "I remove, you change", "you add"})
        other.put(name, {{.tsid = 2}});

    ASSERT_EQ(other.save(file_), status::kOk);
    ASSERT_EQ(manager_.save(file_), status::kOk);
    EXPECT_THAT(manager_.names(),
                ElementsAre("I change", "you change", "both change", "I change, you remove",
                            "I add", "I remove, you change", "you add"));
    const LoadedManager third;
    ASSERT_EQ(third.load(file_), status::kOk);
    EXPECT_EQ(third.names(), manager_.names());
    EXPECT_EQ(third.transponders("you change").front().tsid, 2);
    EXPECT_EQ(third.transponders("both change").front().tsid, 1);
    // The next save of the other takes that over too, and changes nothing.
    const std::string saved = readFile(file_);
    ASSERT_EQ(other.save(file_), status::kOk);
    ASSERT_EQ(third.save(file_), status::kOk);
    EXPECT_EQ(readFile(file_), saved);
}

TEST_F(ListFile, savedUnderAnotherNameKeepsWhatIsThere)
{
    const std::filesystem::path elsewhere = folder_ / "other.xml";
    const LoadedManager other;
    other.put("theirs", {});
    ASSERT_EQ(other.save(elsewhere), status::kOk);
    manager_.put("mine", {});
    ASSERT_EQ(manager_.save(file_), status::kOk);
    ASSERT_EQ(manager_.save(elsewhere), status::kOk);
    EXPECT_THAT(manager_.names(), ElementsAre("mine", "theirs"));
}

TEST_F(ListFile, losesNothingWhenManagersSaveAtOnce)
{
    const auto work = [&](const LoadedManager& manager, const std::string& prefix) {
        for (int i = 0; i < 10; ++i) {
            manager.put(prefix + std::to_string(i), {});
            EXPECT_EQ(manager.save(file_), status::kOk);
        }
    };
    {
        const LoadedManager other;
        const std::jthread a([&] { work(other, "a"); });
        const std::jthread b([&] { work(manager_, "b"); });
        const std::jthread c([&] { work(manager_, "c"); });
    }
    const LoadedManager all;
    ASSERT_EQ(all.load(file_), status::kOk);
    EXPECT_EQ(all.names().size(), 30U);
}

TEST_F(ListFile, isFilledWithTheBuiltInListAtTheFirstStart)
{
    EXPECT_EQ(loadSatelliteList(manager_.get(), file_), status::kNotFound);
    std::string list;
    for (const std::string& name : manager_.names()) {
        list += name + '\n';
        for (const TransponderEntry& entry : manager_.transponders(name))
            list += "  " + testing::PrintToString(entry) + '\n';
    }
    EXPECT_EQ(list, test::readFile(TESSAVIEW_SOURCE_DIR "/tests/satlist/built_in.txt"));
    EXPECT_EQ(manager_.names(true), manager_.names());
    ASSERT_EQ(saveSatelliteList(manager_.get(), file_), status::kOk);
    const LoadedManager again;
    again.put("gone", {});
    EXPECT_EQ(loadSatelliteList(again.get(), file_), status::kOk);
    EXPECT_EQ(again.names(), manager_.names());
}

TEST_F(ListFile, keepsWhatOthersDidToBuiltInSatellitesWhenItWasNotRead)
{
    for (const bool isThere : {false, true}) { // when it is loaded, but cannot be read then
        const LoadedManager manager;
        const LoadedManager other;
        std::filesystem::remove_all(file_);
        if (isThere)
            std::filesystem::create_directories(file_);
        loadSatelliteList(manager.get(), file_);
        std::filesystem::remove(file_);
        loadSatelliteList(other.get(), file_);
        other.put("Astra 19E", {{.tsid = 7}});
        other->RemoveSatellite(
            Bstr(std::string_view("Sirius Satellite System European Coverage")).get());
        ASSERT_EQ(other.save(file_), status::kOk);
        manager.put("Hotbird 13E", {{.tsid = 8}});
        ASSERT_EQ(manager.save(file_), status::kOk);
        EXPECT_EQ(manager.names().size(), 8U);
        EXPECT_EQ(manager.transponders("Astra 19E").front().tsid, 7);
        EXPECT_EQ(manager.transponders("Hotbird 13E").front().tsid, 8);
    }
}

} // namespace
