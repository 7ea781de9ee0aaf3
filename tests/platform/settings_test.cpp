#include "platform/settings.h"

#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace tessaview;
using test::readFile;
using test::TemporaryFolder;
using test::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string kKey = std::string(kSettingsKey);

class SettingsTest : public testing::Test {
protected:
    /// What a write complains of.
    std::string complaint() const
    {
        try {
            Settings(file_).setNumber(kKey, "sitables", 1);
        } catch (const SettingsError& problem) {
            return problem.what();
        }
        return "";
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_ / "below/settings.json";
};

TEST_F(SettingsTest, giveBackWhatAnotherObjectWrote)
{
    Settings writer(file_);
    const Settings reader(file_);
    EXPECT_FALSE(reader.canOpen(kKey));
    writer.setNumber(kKey, "sitables", 0xFFFFFFFF);
    EXPECT_EQ(std::filesystem::status(file_).permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(reader.number(kKey, "sitables"), 0xFFFFFFFF);
    writer.setText(kKey, "driverclsid", "{\"\\\xC3\xA9}");
    writer.setTexts(kKey + "\\drivers", "captures", {"/one", ""});
    EXPECT_TRUE(reader.canOpen(kKey));
    EXPECT_FALSE(reader.canOpen("SOFTWARE"));
    EXPECT_EQ(reader.number(kKey, "sitables"), 0xFFFFFFFF);
    EXPECT_EQ(reader.text(kKey, "driverclsid"), "{\"\\\xC3\xA9}");
    EXPECT_THAT(reader.texts(kKey + "\\drivers", "captures"), ElementsAre("/one", ""));
}

TEST_F(SettingsTest, loseAValueOnlyWhenItIsRemoved)
{
    Settings settings(file_);
    settings.setText(kKey, "driverclsid", "x");
    settings.setNumber(kKey, "sitables", 0);
    settings.remove(kKey, "driverclsid");
    settings.remove(kKey, "driverclsid");
    settings.remove("no such key", "driverclsid");
    EXPECT_EQ(settings.text(kKey, "driverclsid"), std::nullopt);
    EXPECT_EQ(settings.number(kKey, "sitables"), 0U);
}

TEST_F(SettingsTest, takeAValueOfAnotherTypeForMissing)
{
    std::filesystem::create_directory(folder_ / "below");
    writeFile(file_, R"({"k": {"text": "1", "negative": -1, "real": 1.5, "large": 4294967296,
                               "mixed": ["a", 1], "list": ["a"], "null": null}, "flat": 7})");
    const Settings settings(file_);
    for (const char* name : {"text", "negative", "real", "large", "mixed", "null", "none"})
        EXPECT_EQ(settings.number("k", name), std::nullopt) << name;
    EXPECT_EQ(settings.text("k", "list"), std::nullopt);
    EXPECT_THAT(settings.texts("k", "mixed"), ElementsAre());
    EXPECT_THAT(settings.texts("k", "text"), ElementsAre());
    EXPECT_FALSE(settings.canOpen("flat"));
    EXPECT_EQ(settings.number("flat", "x"), std::nullopt);
}

TEST_F(SettingsTest, setABrokenFileAsideBeforeTheyWriteANewOne)
{
    std::filesystem::create_directory(folder_ / "below");
    int number = 0;
    for (const std::string& content :
         {std::string("{\"k\": {\"x\": 1}"), std::string("[1]"), std::string(100'000, '['),
          R"({"k":)" + std::string(900'000, '[') + std::string(900'000, ']') + "}",
          "{\"k\": \"" + std::string(2'000'000, 'x') + "\"}"}) {
        writeFile(file_, content);
        Settings settings(file_);
        EXPECT_FALSE(settings.canOpen("k"));
        EXPECT_EQ(settings.number("k", "x"), std::nullopt);
        settings.setNumber("k", "x", 2);
        EXPECT_EQ(settings.number("k", "x"), 2U);
        EXPECT_EQ(readFile(file_.string() + ".broken-" + std::to_string(++number)), content);
    }
}

TEST_F(SettingsTest, readAPipeOrAFolderAsNoSettingsAndRefuseToReplaceThem)
{
    std::filesystem::create_directories(file_);
    EXPECT_FALSE(Settings(file_).canOpen(kKey));
    EXPECT_THAT(complaint(), HasSubstr(file_.string() + " is not a regular file"));
    std::filesystem::remove(file_);
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    EXPECT_FALSE(Settings(file_).canOpen(kKey)); // does not wait for a writer
    EXPECT_THAT(complaint(), HasSubstr("is not a regular file"));
}

TEST_F(SettingsTest, keepALinkInTheirPlaceAndWriteWhereItLeads)
{
    std::filesystem::create_directory(folder_ / "below");
    writeFile(folder_ / "real.json", "{}");
    std::filesystem::create_symlink("../real.json", file_);
    Settings(file_).setNumber(kKey, "sitables", 3);
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
    EXPECT_EQ(Settings(folder_ / "real.json").number(kKey, "sitables"), 3U);
    std::filesystem::remove(folder_ / "real.json");
    EXPECT_THAT(complaint(), HasSubstr(file_.string() + " leads nowhere"));
}

TEST_F(SettingsTest, complainOfATextThatIsNotUtf8AndStayAsTheyWere)
{
    Settings settings(file_);
    settings.setText(kKey, "x", "before");
    EXPECT_THROW(settings.setText(kKey, "x", "\xFF"), SettingsError);
    EXPECT_THROW(settings.setText(kKey, "x", std::string(2'000'000, 'x')), SettingsError);
    EXPECT_EQ(settings.text(kKey, "x"), "before");
}

TEST_F(SettingsTest, nameTheFileThatCannotBeWritten)
{
    writeFile(folder_ / "below", "a file where the folder should be");
    EXPECT_THAT(complaint(), HasSubstr((folder_ / "below").string()));
    file_ = "/proc/settings.json"; // a folder that takes no files
    EXPECT_EQ(complaint(), "/proc/settings.json.lock cannot be written: No such file or directory");
    file_.clear();
    EXPECT_THAT(complaint(), HasSubstr("no folder"));
}

TEST_F(SettingsTest, ofSeveralProgramsAtOnceLoseNoWrite)
{
    constexpr int kPrograms = 4;
    constexpr int kWrites = 25;
    for (int program = 0; program < kPrograms; ++program)
        if (fork() == 0) {
            for (int i = 0; i < kWrites; ++i)
                Settings(file_).setNumber(kKey, std::to_string(program * 100 + i), 1);
            _exit(0);
        }
    for (int program = 0; program < kPrograms; ++program) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    for (int program = 0; program < kPrograms; ++program)
        for (int i = 0; i < kWrites; ++i)
            EXPECT_EQ(Settings(file_).number(kKey, std::to_string(program * 100 + i)), 1U);
}

TEST(DefaultSettingsFile, liesInTheUsersFolderForConfiguration)
{
    const test::Environment home("HOME", "/home/of/mine");
    const test::Environment given("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(defaultSettingsFile(), "/config/tessaview3/settings.json");
    const test::Environment relative("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(defaultSettingsFile(), "/home/of/mine/.config/tessaview3/settings.json");
}

} // namespace
