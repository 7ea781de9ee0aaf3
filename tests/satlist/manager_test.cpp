#include "satlist/default_list.h"
#include "tests/satlist/loaded_manager.h"

#include <gmock/gmock.h>
#include <limits>
#include <thread>

#include <gtest/gtest.h>

using namespace tessaview;
using test::LoadedManager;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(SatListManager, keepsCopiesSoThatAChangeReachesTheListOnlyWhenPut)
{
    const LoadedManager manager;
    manager.put("Hotbird", {{.tsid = 1, .frequency = 1071900}});
    const auto satellite = manager.satellite("Hotbird");
    satellite->put_Selected(0);
    satellite->RemoveTransponder(0, 1);
    addTransponder(*satellite.get(), {.nid = 0xFFFF, .tsid = 0xFFFF, .frequency = 2});
    EXPECT_THAT(manager.names(true), ElementsAre("Hotbird"));
    EXPECT_THAT(manager.transponders("Hotbird"),
                ElementsAre(TransponderEntry{.tsid = 1, .frequency = 1071900}));

    EXPECT_EQ(manager->PutSatellite(satellite.get()), status::kOk);
    satellite->RemoveTransponder(0xFFFF, 0xFFFF);
    EXPECT_THAT(manager.names(true), IsEmpty());
    EXPECT_THAT(manager.transponders("Hotbird"),
                ElementsAre(TransponderEntry{.nid = 0xFFFF, .tsid = 0xFFFF, .frequency = 2}));
}

TEST(SatListManager, enumeratesTheListAsItWas)
{
    const LoadedManager manager;
    manager.put("a", {{.tsid = 1}, {.tsid = 2}});
    manager.put("b", {}, false);
    ComPtr<IEnumSatellite> all;
    ASSERT_EQ(enumSatellites(manager.get(), false, all), status::kOk);
    ComPtr<IEnumSatTransponder> both;
    const auto satellite = manager.satellite("a");
    ASSERT_EQ(enumTransponders(*satellite.get(), TransponderUse::Scan, both), status::kOk);
    manager->RemoveSatellite(Bstr(std::string_view("a")).get());
    manager.put("c", {});
    satellite->RemoveTransponder(0, 1);

    std::vector<std::string> names;
    for (const auto& each : Items(all.get())) {
        Bstr name;
        each->get_Name(name.put());
        names.push_back(name.utf8());
    }
    EXPECT_THAT(names, ElementsAre("a", "b"));
    std::vector<std::int32_t> tsids;
    for (const auto& each : Items(both.get()))
        each->get_TSID(&tsids.emplace_back());
    EXPECT_THAT(tsids, ElementsAre(1, 2));
    ISatTransponder* none = nullptr;
    EXPECT_EQ(both->Next(1, &none, nullptr), status::kFalse);
    EXPECT_EQ(none, nullptr);
}

TEST(SatListManager, countsAndEnumeratesTheSelectedSatellites)
{
    const LoadedManager manager;
    manager.put("a", {});
    manager.put("b", {}, false);
    manager.put("c", {});
    std::uint32_t count = 0;
    EXPECT_EQ(manager->GetSatelliteCount(&count), status::kOk);
    EXPECT_EQ(count, 2U);
    EXPECT_THAT(manager.names(true), ElementsAre("a", "c"));
    // Replaced in its place.
    manager.put("b", {{.tsid = 7}});
    EXPECT_THAT(manager.names(true), ElementsAre("a", "b", "c"));
}

TEST(SatListManager, answersBadArgumentsWithAStatus)
{
    const LoadedManager manager;
    manager.put("a", {{.tsid = 1}});
    const auto satellite = manager.satellite("a");
    const Bstr name(std::string_view("a"));
    ComPtr<ISatellite> out;
    ComPtr<ISatTransponder> transponder;
    EXPECT_EQ(manager->EnumSatellites(1, 0, nullptr), status::kNullPointer);
    EXPECT_EQ(manager->GetSatellite(name.get(), nullptr), status::kNullPointer);
    EXPECT_EQ(manager->CreateSatellite(name.get(), nullptr), status::kNullPointer);
    EXPECT_EQ(manager->PutSatellite(nullptr), status::kNullPointer);
    EXPECT_EQ(manager->GetSatelliteCount(nullptr), status::kNullPointer);
    EXPECT_EQ(manager->Load(nullptr), status::kInvalidArgument);
    EXPECT_EQ(manager->Save(nullptr), status::kInvalidArgument);
    EXPECT_EQ(manager->RemoveSatellite(nullptr), status::kNotFound);
    EXPECT_EQ(getSatellite(manager.get(), Bstr(std::string_view("A")), out), status::kNotFound);
    EXPECT_EQ(satellite->AddTransponder(nullptr), status::kNullPointer);
    EXPECT_EQ(satellite->EnumTransponders(1, nullptr), status::kNullPointer);
    EXPECT_EQ(satellite->RemoveTransponder(0, 2), status::kNotFound);
    EXPECT_EQ(addTransponder(*satellite.get(), {.tsid = 1}), status::kAlreadyExists);
    for (const std::int32_t bad : {-1, 0x10000, INT32_MAX}) {
        EXPECT_EQ(addTransponder(*satellite.get(), {.nid = bad}), status::kInvalidArgument);
        EXPECT_EQ(addTransponder(*satellite.get(), {.tsid = bad}), status::kInvalidArgument);
    }
    ComPtr<IEnumSatellite> enumerator;
    ASSERT_EQ(enumSatellites(manager.get(), false, enumerator), status::kOk);
    ISatellite* item = nullptr;
    EXPECT_EQ(enumerator->Next(1, nullptr, nullptr), status::kNullPointer);
    EXPECT_EQ(enumerator->Next(0xFFFFFFFF, &item, nullptr), status::kInvalidArgument);
    EXPECT_THAT(manager.names(), ElementsAre("a"));
}

TEST(SatListManager, takesWhatDvbS2NeedsWithinItsRanges)
{
    const LoadedManager manager;
    manager.put("a", {{.tsid = 1}});
    ComPtr<ISatTransponderS2> s2;
    ASSERT_EQ(query(LoadedManager::firstTransponder(*manager.satellite("a").get()), s2),
              status::kOk);
    struct Case {
        Status (ISatTransponderS2::*put)(std::int32_t);
        Status (ISatTransponderS2::*get)(std::int32_t*);
        std::int32_t least;
        std::int32_t most;
    };
    const std::vector<Case> cases{
        {&ISatTransponderS2::put_System, &ISatTransponderS2::get_System, 0, 1},
        {&ISatTransponderS2::put_Modulation, &ISatTransponderS2::get_Modulation, 1, 4},
        {&ISatTransponderS2::put_RollOff, &ISatTransponderS2::get_RollOff, 0, 2},
        {&ISatTransponderS2::put_Pilot, &ISatTransponderS2::get_Pilot, 0, 1},
        {&ISatTransponderS2::put_StreamId, &ISatTransponderS2::get_StreamId, 0, 255},
    };
    for (const auto& [put, get, least, most] : cases) {
        constexpr std::int32_t none = ISatTransponderS2::kNotGiven;
        std::int32_t value = 99;
        EXPECT_EQ((s2.get()->*get)(&value), status::kOk);
        EXPECT_EQ(value, none) << "untouched by the others";
        EXPECT_EQ((s2.get()->*get)(nullptr), status::kNullPointer);
        for (const std::int32_t good : {least, none, most}) {
            EXPECT_EQ((s2.get()->*put)(good), status::kOk);
            (s2.get()->*get)(&value);
            EXPECT_EQ(value, good);
        }
        for (const std::int32_t bad : {-2, most + 1, least == 0 ? INT32_MAX : least - 1})
            EXPECT_EQ((s2.get()->*put)(bad), status::kInvalidArgument) << bad;
        (s2.get()->*get)(&value);
        EXPECT_EQ(value, most) << "what is refused changes nothing";
    }
}

TEST(SatListManager, refusesNamesThatNoFileCouldHold)
{
    const LoadedManager manager;
    const std::u16string names[]{u"",        std::u16string(1, u'\0'),  u"a\nb", u"\x7F", u"\xFFFF",
                                 u"\xD800x", std::u16string(1001, u'x')};
    for (const std::u16string& name : names) {
        ComPtr<ISatellite> out;
        EXPECT_EQ(createSatellite(manager.get(), Bstr(std::u16string_view(name)), out),
                  status::kInvalidArgument)
            << name.size();
    }
}

/// Somebody else's transponder and satellite, which this component does not know.
template <class Interface>
struct Foreign : IUnknown {
    Status QueryInterface(const Guid&, void** object) noexcept override
    {
        *object = nullptr;
        return status::kNoInterface;
    }
    std::uint32_t AddRef() noexcept override { return 1; }
    std::uint32_t Release() noexcept override { return 1; }
};

TEST(SatListManager, takesOnlyObjectsOfItsOwn)
{
    const LoadedManager manager;
    manager.put("a", {});
    Foreign<ISatellite> satellite;
    Foreign<ISatTransponder> transponder;
    // Only the standard slots are called on an object that answers to nothing.
    EXPECT_EQ(manager->PutSatellite(reinterpret_cast<ISatellite*>(&satellite)),
              status::kInvalidArgument);
    EXPECT_EQ(
        manager.satellite("a")->AddTransponder(reinterpret_cast<ISatTransponder*>(&transponder)),
        status::kInvalidArgument);
}

TEST(SatListManager, servesSeveralThreads)
{
    const LoadedManager manager;
    manager.put("shared", {});
    const auto shared = manager.satellite("shared");
    const auto work = [&](int number) {
        for (std::int32_t i = 0; i < 200; ++i) {
            manager.put("own " + std::to_string(number), {{.tsid = i}});
            addTransponder(*shared.get(), {.nid = number, .tsid = i});
            manager->PutSatellite(shared.get());
            for (const std::string& name : manager.names())
                manager.transponders(name);
        }
    };
    {
        const std::jthread first(work, 1);
        const std::jthread second(work, 2);
    }
    EXPECT_EQ(manager.transponders("shared").size(), 400U);
    EXPECT_EQ(manager.names().size(), 3U);
}

TEST(DefaultList, isTheBuiltInOne)
{
    const LoadedManager manager;
    ASSERT_EQ(fillDefaultList(manager.get()), status::kOk);
    EXPECT_THAT(manager.names(true),
                ElementsAre("Astra 19E", "Hispasat Europe 30W",
                            "Sirius Satellite System European Coverage", "1 degree W",
                            "Hotbird 13E", "Echostar 7 119 W", "Echostar 6/8 110 W", "Nimiq 1 91 W",
                            "Nimiq 2 82 W"));
    std::size_t count = 0;
    for (const std::string& name : manager.names())
        count += manager.transponders(name).size();
    EXPECT_EQ(count, 16U);
    EXPECT_THAT(manager.transponders("Nimiq 2 82 W"),
                ElementsAre(TransponderEntry{0, 1, 1222400, 3, 200000, 4, 0}));
}

} // namespace
