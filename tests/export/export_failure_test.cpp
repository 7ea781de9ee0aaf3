#include "export/database_export.h"
#include "tests/export/failing_vfs.h"
#include "tests/export/read_back.h"
#include "tests/export/sample_model.h"
#include "tests/support/tests.h"

namespace {

std::string failureOf(const NetworkMap& model, const fs::path& file)
{
    const auto failure = exportDatabase(model, file);
    return failure ? failure->what() : "";
}

TEST(ExportFailure, leavesAFileThatExistsAsItIs)
{
    const test::TemporaryFolder folder;
    test::writeFile(folder / "old.sqlite", "mine");
    fs::create_symlink(folder / "nowhere", folder / "link.sqlite");
    for (const char* name : {"old.sqlite", "link.sqlite"}) {
        const std::string text = failureOf(test::manyServices(1, 1), folder / name);
        EXPECT_THAT(text, HasSubstr("Error: 0xe\nDesc: The file \""));
        EXPECT_THAT(text, HasSubstr("exists already"));
        EXPECT_THAT(text, HasSubstr("\nSource: File system"));
    }
    EXPECT_EQ(test::readFile(folder / "old.sqlite"), "mine");
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
}

TEST(ExportFailure, saysWhatIsWrongWithThePlace)
{
    const test::TemporaryFolder folder;
    test::writeFile(folder / "file", "");
    const NetworkMap model;
    EXPECT_THAT(failureOf(model, folder / "no/a.db"), HasSubstr("its folder does not exist"));
    EXPECT_THAT(failureOf(model, folder / "file/a.db"), HasSubstr("its folder does not exist"));
    EXPECT_THAT(failureOf(model, ""), HasSubstr("cannot be created"));
    EXPECT_THAT(failureOf(model, folder / std::string(300, 'x')), HasSubstr("name too long"));
}

TEST(ExportFailure, takesNoNameForAUri)
{
    const test::TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(failureOf(test::manyServices(1, 1), "file:a?mode=memory"), "");
    EXPECT_EQ(failureOf(test::manyServices(1, 1), ":memory:"), "");
    fs::current_path(before);
    EXPECT_EQ(numberOf(folder / "file:a?mode=memory", "SELECT count(*) FROM tb_service"), 1);
    EXPECT_EQ(numberOf(folder / ":memory:", "SELECT count(*) FROM tb_service"), 1);
}

TEST(ExportFailure, ofAFileThatIsNoDatabaseNamesTheFile)
{
    const test::TemporaryFolder folder;
    test::writeFile(folder / "text", "no database, whatever anyone says");
    for (const char* name : {"text", "missing"}) {
        try {
            ExportModel(NetworkMap(), folder / name);
            ADD_FAILURE() << name;
        } catch (const DatabaseError& failure) {
            EXPECT_THAT(failure.source(), HasSubstr("SQLite 3."));
            EXPECT_THAT(failure.description(), HasSubstr(name));
        }
    }
}

TEST(BadDisk, costsNoMoreThanTheRowsAfterIt)
{
    using Fault = FailingVfs::Fault;
    const NetworkMap model = test::manyServices(5, 20);
    for (const Fault fault : {Fault::DiskFull, Fault::BrokenDisk, Fault::OneWrite}) {
        const test::TemporaryFolder folder;
        int withRows = 0;
        bool hasFailed = true;
        for (int writes = 0; hasFailed; ++writes) {
            SCOPED_TRACE(std::to_string(static_cast<int>(fault)) + " after " +
                         std::to_string(writes));
            const fs::path file = folder / std::to_string(writes);
            std::string failure;
            {
                const FailingVfs disk(fault, writes);
                failure = failureOf(model, file);
                hasFailed = disk.hasFailed();
            }
            EXPECT_EQ(failure.empty(), !hasFailed);
            if (!fs::exists(file)) // it failed before there was a row
                continue;
            ASSERT_THAT(test::faultsOf(file), IsEmpty()) << failure;
            const int services = numberOf(file, "SELECT count(*) FROM service_list");
            EXPECT_EQ(services, 20 * numberOf(file, "SELECT count(*) FROM tb_transponder"));
            EXPECT_EQ(numberOf(file, "SELECT count(*) FROM ecm_list"), services);
            EXPECT_EQ(numberOf(file, "PRAGMA user_version"), hasFailed ? 0 : 1);
            withRows += hasFailed && services > 0 ? 1 : 0;
        }
        EXPECT_GT(withRows, 5) << "hardly a fault hit the rows";
    }
}

TEST(ExportFailure, keepsTheRowsBeforeIt)
{
    const test::TemporaryFolder folder;
    const fs::path file = folder / "a.db";
    CreateDatabase(file);
    test::rowsOf(file, "CREATE TRIGGER stop BEFORE INSERT ON tb_ca_ecm WHEN NEW.SERVICE_ID = 15 "
                       "BEGIN SELECT raise(ABORT, 'no more'); END");
    try {
        ExportModel(test::manyServices(3, 10), file);
        ADD_FAILURE();
    } catch (const DatabaseError& failure) {
        EXPECT_EQ(failure.description(), "cannot write a row of tb_ca_ecm: no more");
    }
    EXPECT_THAT(test::faultsOf(file), IsEmpty());
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM service_list"), 15);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM ecm_list"), 14);
}

TEST(ExportFailure, ofASecondExportToTheSameFileHarmsNotTheFirst)
{
    const test::TemporaryFolder folder;
    const NetworkMap model = test::manyServices(40, 20);
    std::vector<std::string> failures(4);
    {
        std::vector<std::jthread> workers;
        for (std::size_t i = 0; i < failures.size(); ++i)
            workers.emplace_back(
                [&, i] { failures[i] = failureOf(model, folder / (i % 2 == 0 ? "even" : "odd")); });
    }
    EXPECT_THAT(failures, testing::Contains("").Times(2));
    EXPECT_THAT(failures, testing::Contains(HasSubstr("exists already")).Times(2));
    for (const char* name : {"even", "odd"}) {
        EXPECT_THAT(test::faultsOf(folder / name), IsEmpty());
        EXPECT_EQ(numberOf(folder / name, "SELECT count(*) FROM ecm_list"), 800);
    }
}

} // namespace
