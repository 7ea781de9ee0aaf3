#pragma once

#include <sqlite3.h>

namespace test {

/// While it lives, every database opened in this process writes through it, and the disk fails.
class FailingVfs {
public:
    enum class Fault {
        DiskFull,   ///< from the write on that comes after so many, no file can grow
        BrokenDisk, ///< from that write on none succeeds
        OneWrite,   ///< that write alone fails
    };

    FailingVfs(Fault fault, int goodWrites);
    FailingVfs(const FailingVfs&) = delete;
    FailingVfs& operator=(const FailingVfs&) = delete;
    ~FailingVfs();

    /// A write failed.
    bool hasFailed() const;

private:
    sqlite3_vfs* real_;
    sqlite3_vfs vfs_;
};

} // namespace test
