#include "tests/export/failing_vfs.h"

#include <new>

namespace test {

namespace {

/// What the next writes do; SQLite's callbacks reach nothing else.
struct {
    FailingVfs::Fault fault;
    int goodWrites;
    bool hasFailed;
} script;

/// A file of the shim; the real one lies right behind it.
struct File : sqlite3_file {
    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

/// Calls a method of the real file with the arguments of the shim's.
template <auto Method>
struct Forward;
template <class... Arguments, int (*sqlite3_io_methods::*Method)(sqlite3_file*, Arguments...)>
struct Forward<Method> {
    static int call(sqlite3_file* file, Arguments... arguments)
    {
        sqlite3_file* const real = static_cast<File*>(file)->real();
        return (real->pMethods->*Method)(real, arguments...);
    }
};

bool fails(sqlite3_file* real, sqlite3_int64 end)
{
    if (script.goodWrites > 0) {
        --script.goodWrites;
        return false;
    }
    sqlite3_int64 size = 0;
    real->pMethods->xFileSize(real, &size);
    if (script.fault == FailingVfs::Fault::DiskFull && end <= size)
        return false;
    if (script.fault == FailingVfs::Fault::OneWrite && script.hasFailed)
        return false;
    script.hasFailed = true;
    return true;
}

int write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset)
{
    sqlite3_file* const real = static_cast<File*>(file)->real();
    if (fails(real, offset + size))
        return script.fault == FailingVfs::Fault::DiskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    return real->pMethods->xWrite(real, data, size, offset);
}

using Methods = sqlite3_io_methods;
constexpr Methods kMethods = [] {
    Methods methods{};
    methods.iVersion = 1;
    methods.xClose = Forward<&Methods::xClose>::call;
    methods.xRead = Forward<&Methods::xRead>::call;
    methods.xWrite = write;
    methods.xTruncate = Forward<&Methods::xTruncate>::call;
    methods.xSync = Forward<&Methods::xSync>::call;
    methods.xFileSize = Forward<&Methods::xFileSize>::call;
    methods.xLock = Forward<&Methods::xLock>::call;
    methods.xUnlock = Forward<&Methods::xUnlock>::call;
    methods.xCheckReservedLock = Forward<&Methods::xCheckReservedLock>::call;
    methods.xFileControl = Forward<&Methods::xFileControl>::call;
    methods.xSectorSize = Forward<&Methods::xSectorSize>::call;
    methods.xDeviceCharacteristics = Forward<&Methods::xDeviceCharacteristics>::call;
    return methods;
}();

int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* const real = static_cast<sqlite3_vfs*>(vfs->pAppData);
    auto* const shim = new (file) File;
    const int result = real->xOpen(real, name, shim->real(), flags, outFlags);
    shim->pMethods = result == SQLITE_OK ? &kMethods : nullptr;
    return result;
}

} // namespace

FailingVfs::FailingVfs(Fault fault, int goodWrites) : real_(sqlite3_vfs_find(nullptr)), vfs_(*real_)
{
    script = {.fault = fault, .goodWrites = goodWrites, .hasFailed = false};
    vfs_.zName = "failing";
    vfs_.pAppData = real_;
    vfs_.szOsFile += static_cast<int>(sizeof(File));
    vfs_.xOpen = open;
    sqlite3_vfs_register(&vfs_, 1);
}

FailingVfs::~FailingVfs()
{
    sqlite3_vfs_unregister(&vfs_);
    sqlite3_vfs_register(real_, 1);
}

bool FailingVfs::hasFailed() const
{
    return script.hasFailed;
}

} // namespace test
