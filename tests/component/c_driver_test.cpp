#include "component/bstr.h"
#include "component/class_registry.h"
#include "component/task_memory.h"
#include "driver/tuner_driver.h"
#include "tests/support/bytes.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <gtest/gtest.h>

using namespace tessaview;
using test::hex;

namespace {

template <class Record>
Record recordOf(std::string_view text)
{
    Record record;
    const auto bytes = hex(text);
    EXPECT_EQ(bytes.size(), sizeof record);
    std::memcpy(&record, bytes.data(), sizeof record);
    return record;
}

template <class Record>
std::vector<std::uint8_t> bytesOf(const Record& record)
{
    std::vector<std::uint8_t> bytes(sizeof record);
    std::memcpy(bytes.data(), &record, sizeof record);
    return bytes;
}

/// The driver in C, found and loaded as any driver is.
class CDriver : public testing::Test {
protected:
    void SetUp() override
    {
        const ClassRegistry registry({TESSAVIEW_BUILD_DIR "/tests/components"});
        const auto drivers = registry.classesOf(kDriverCategory);
        ASSERT_EQ(drivers.size(), 1U);
        std::string why;
        ASSERT_EQ(registry.create(drivers[0].clsid, driver_, &why), status::kOk) << why;
    }

    template <class Interface>
    ComPtr<Interface> as()
    {
        ComPtr<Interface> found;
        EXPECT_EQ(query(driver_, found), status::kOk);
        return found;
    }

    ComPtr<IDriverInfo> driver_;
    int window_ = 0;
    WindowHandle owner_ = &window_;
};

TEST_F(CDriver, tellsItsNameAndRefusesAForeignInterface)
{
    Bstr name;
    ASSERT_EQ(driver_->GetName(name.put()), status::kOk);
    EXPECT_EQ(name.utf8(), "C \xC3\xA9\xF0\x9F\x93\xA1");
    ComPtr<ISourceFiles> files;
    EXPECT_EQ(query(driver_, files), status::kNoInterface);
}

TEST_F(CDriver, isControlled)
{
    const auto control = as<IDriverControl>();
    const auto tunerStatus = as<ITunerStatus>();
    Bstr text;
    EXPECT_TRUE(failed(tunerStatus->GetStatusText(text.put())));
    const Bstr key("key");
    const Bstr user("/h\xC3\xB6me");
    const Bstr common("/common");
    ASSERT_EQ(control->Initialize(key.get(), user.get(), common.get()), status::kOk);
    EXPECT_TRUE(failed(control->Shutdown()));
    auto* const manager = reinterpret_cast<ISatListManager*>(&window_);
    ASSERT_EQ(control->SetSatListManager(manager), status::kOk);
    EXPECT_EQ(control->Shutdown(), 0x12);
    std::array<std::uint16_t, 2> type{0xFFFF, 0xFFFF};
    ASSERT_EQ(control->GetTunerType(type.data()), status::kOk);
    EXPECT_EQ(type, (std::array<std::uint16_t, 2>{3, 0xFFFF})); // exactly 16 bits

    ASSERT_EQ(tunerStatus->GetStatusText(text.put()), status::kOk);
    EXPECT_EQ(text.utf8(), "key|/h\xC3\xB6me|/common|");
    std::int32_t locked = 0;
    ASSERT_EQ(tunerStatus->IsLocked(&locked), status::kOk);
    EXPECT_EQ(locked, -1);
    EXPECT_EQ(tunerStatus->ReservedSlot2(), 0x62);
    EXPECT_EQ(tunerStatus->ReservedSlot3(), 0x63);
}

TEST_F(CDriver, showsItsWindows)
{
    const auto dialogs = as<IDeviceDialogs>();
    EXPECT_EQ(dialogs->ShowTuningDialog(owner_), 0x51);
    EXPECT_EQ(dialogs->ShowSettingsDialog(owner_), 0x52);
    EXPECT_EQ(dialogs->ShowStreamingDialog(owner_), 0x53);
    EXPECT_TRUE(failed(dialogs->ShowTuningDialog(nullptr)));
}

/// The driver gives every field back one higher, each from where its own layout has it.
TEST_F(CDriver, takesAndGivesTunings)
{
    const auto tuner = as<ISetTuner>();
    Bstr name;
    SatelliteTuning satellite{};
    EXPECT_TRUE(failed(tuner->GetSatelliteTuning(name.put(), &satellite)));
    satellite =
        recordOf<SatelliteTuning>("84838281 9291 0000 A4A3A2A1 B1 C1 0000 D4D3D2D1 E1 000000");
    ASSERT_EQ(tuner->SetSatelliteTuning(owner_, Bstr("Hot Bird").get(), &satellite), status::kOk);
    ASSERT_EQ(tuner->GetSatelliteTuning(name.put(), &satellite), status::kOk);
    EXPECT_EQ(name.utf8(), "Hot Bird");
    EXPECT_EQ(bytesOf(satellite), hex("85838281 9391 0000 A5A3A2A1 B2 C2 0000 D5D3D2D1 E2 000000"));

    auto cable = recordOf<CableTuning>("84838281 91 A1 0000 B4B3B2B1 C1 000000");
    ASSERT_EQ(tuner->SetCableTuning(owner_, &cable), status::kOk);
    ASSERT_EQ(tuner->GetCableTuning(&cable), status::kOk);
    EXPECT_EQ(bytesOf(cable), hex("85838281 92 A2 0000 B5B3B2B1 C2 000000"));

    auto terrestrial = recordOf<TerrestrialTuning>("84838281 91 A1 B1 C1 D1 E1 F1 71");
    ASSERT_EQ(tuner->SetTerrestrialTuning(owner_, &terrestrial), status::kOk);
    ASSERT_EQ(tuner->GetTerrestrialTuning(&terrestrial), status::kOk);
    EXPECT_EQ(bytesOf(terrestrial), hex("85838281 92 A2 B2 C2 D2 E2 F2 72"));
}

/// The sections of an answer, which is released.
std::vector<std::vector<std::uint8_t>> taken(const SectionList& answer)
{
    const std::array<std::size_t, 2> sizes{sizeof(TableRequest), 7};
    std::vector<std::vector<std::uint8_t>> sections;
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::max(answer.count, 0)); ++i) {
        sections.emplace_back(answer.sections[i], answer.sections[i] + sizes.at(i));
        TessaviewTaskMemFree(answer.sections[i]);
    }
    TessaviewTaskMemFree(answer.sections);
    return sections;
}

TEST_F(CDriver, readsTheTablesOfABatch)
{
    const auto reader = as<ISectionReader>();
    EXPECT_EQ(reader->ReservedSlot1(), 0x41);

    std::array<TableRequest, 3> requests{};
    requests[0].PID = 0x1FFE;
    requests[0].table_id = 0xFF;
    requests[0].collection_mode = static_cast<std::uint32_t>(CollectionMode::AllEvents);
    requests[1].PID = 0x1FFF;
    requests[2].PID = 0x0123;
    requests[2].table_id = 0x02;
    requests[2].match_table_id_extension = 1;
    requests[2].table_id_extension = 0xFEDC;
    std::array<SectionList, 3> answers{};
    ASSERT_EQ(reader->ReadTables(3, requests.data(), 30, answers.data()), status::kOk);

    const auto first = taken(answers[0]);
    ASSERT_EQ(first.size(), 2U);
    EXPECT_EQ(first[0], hex("FE1F0000 FF000000 05000000" + std::string(176, '0')));
    EXPECT_EQ(first[1], hex("FF 1FFE 05 00 0000"));
    EXPECT_EQ(answers[1].count, 0);
    EXPECT_EQ(answers[1].sections, nullptr);
    const auto third = taken(answers[2]);
    ASSERT_EQ(third.size(), 2U);
    EXPECT_EQ(third[0], hex("23010000 02000000 00000000" + std::string(32, '0') + "01000000 DCFE" +
                            std::string(132, '0')));
    EXPECT_EQ(third[1], hex("02 0123 00 01 FEDC"));

    EXPECT_EQ(reader->ReadTables(0, nullptr, 30, nullptr), status::kOk);
    EXPECT_TRUE(failed(reader->ReadTables(1, requests.data(), 31, answers.data())));
}

} // namespace
