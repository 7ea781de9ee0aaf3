#include "component/bstr.h"
#include "tests/capture/loaded_driver.h"

#include <gtest/gtest.h>

// The dialogs where none can be shown: in a program without windows, and without their library.

namespace {

namespace fs = std::filesystem;
using namespace test;
using namespace tessaview;

std::string statusText(IUnknown* driver)
{
    ComPtr<ITunerStatus> tuner;
    Bstr text;
    if (!failed(query(driver, tuner)))
        tuner->GetStatusText(text.put());
    return text.utf8();
}

void expectNoDialog(IUnknown* driver, Status expected, const std::string& reported)
{
    ComPtr<IDeviceDialogs> dialogs;
    ASSERT_EQ(query(driver, dialogs), status::kOk);
    EXPECT_EQ(dialogs->ShowTuningDialog(nullptr), expected);
    EXPECT_EQ(dialogs->ShowSettingsDialog(nullptr), expected);
    EXPECT_EQ(dialogs->ShowStreamingDialog(nullptr), expected);
    EXPECT_NE(statusText(driver).find(reported), std::string::npos) << statusText(driver);
}

const fs::path kComponents = TESSAVIEW_BUILD_DIR "/lib/tessaview3/components";

TEST(CaptureDialogsLibrary, showsNothingInAProgramWithoutWindows)
{
    if (!fs::exists(kComponents / "capture_dialogs.so"))
        GTEST_SKIP() << "this build has no windows";
    const LoadedDriver driver;
    expectNoDialog(driver.as<IDriverInfo>().get(), status::kNotReady, "a program with windows");
}

TEST(CaptureDialogsLibrary, mayBeMissing)
{
    const TemporaryFolder folder;
    for (const char* name : {"capture.so", "capture.component"})
        fs::copy(kComponents / name, folder / name);
    const ClassRegistry registry({folder.path()});
    const auto classes = registry.classesOf(kDriverCategory);
    ASSERT_EQ(classes.size(), 1U);
    ComPtr<IDriverInfo> driver;
    ASSERT_EQ(registry.create(classes.front().clsid, driver), status::kOk);
    expectNoDialog(driver.get(), status::kLibraryNotFound, "capture_dialogs.so");
}

} // namespace
