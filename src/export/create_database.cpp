#include "export/database.h"
#include "export/database_export.h"
#include "export/schema.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <sqlite3.h>
#include <system_error>

namespace tessaview {

namespace {

std::string problemWith(const std::filesystem::path& file, int error)
{
    const std::string name = '"' + file.string() + '"';
    if (error == EEXIST)
        return "The file " + name +
               " exists already and was left as it is. Choose a new file name, or move the old "
               "file away first.";
    if (error == ENOENT || error == ENOTDIR)
        return "The file " + name + " cannot be created: its folder does not exist.";
    return "The file " + name + " cannot be created: " + std::generic_category().message(error) +
           ".";
}

/// Makes an empty file, which nobody else can have made.
void createFile(const std::filesystem::path& file)
{
    struct Closer {
        void operator()(std::FILE* open) const { std::fclose(open); }
    };
    const std::unique_ptr<std::FILE, Closer> created(std::fopen(file.c_str(), "wxe"));
    if (!created)
        throw DatabaseError(SQLITE_CANTOPEN, problemWith(file, errno), "File system");
}

/// Takes the file away again unless everything went well.
class NewFile {
public:
    explicit NewFile(const std::filesystem::path& file) : file_(file) { createFile(file_); }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile()
    {
        if (isKept_)
            return;
        std::error_code ignored;
        std::filesystem::remove(file_, ignored);
        std::filesystem::remove(file_.string() + "-journal", ignored);
    }

    void keep() { isKept_ = true; }

private:
    const std::filesystem::path& file_;
    bool isKept_ = false;
};

} // namespace

void CreateDatabase(const std::filesystem::path& file)
{
    NewFile created(file);
    Database database(file);
    database.execute("BEGIN;\n" + schemaStatements() + "COMMIT;");
    created.keep();
}

} // namespace tessaview
