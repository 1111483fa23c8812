#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

namespace test_support {

/// What fails: allocations of SQLite or of the library, or calls of the operating system.
enum class Fault {
    kSqliteMemory,
    kOwnMemory,
    /// Reads, writes, syncs, truncations, locks, the shared memory, opening.
    kDevice,
    /// Writes, as on a full disk.
    kFull,
    /// Locks, as if another process held them.
    kBusy,
};

/// Counts the calls of one sort while it is armed and lets the n-th fail, or it and all behind it.
struct FaultPlan {
    bool armed = false;
    bool persistent = false;
    Fault fault = Fault::kDevice;
    long left = 0;
    long fired = 0;
    /// Syncs so far, armed or not.
    long syncs = 0;

    void Arm(Fault what, long n, bool go_on) {
        fault = what;
        left = n;
        persistent = go_on;
        fired = 0;
        armed = true;
    }
    /// How many calls failed.
    long Disarm() {
        armed = false;
        return fired;
    }
    bool Fails(Fault what) {
        if (!armed || fault != what) return false;
        if (left > 1) {
            --left;
            return false;
        }
        if (left == 1 || persistent) {
            left = 0;
            ++fired;
            return true;
        }
        return false;
    }
};

inline FaultPlan& Faults() {
    static FaultPlan plan;
    return plan;
}

namespace internal {

inline sqlite3_mem_methods& Memory() {
    static sqlite3_mem_methods methods;
    return methods;
}

inline void* Allocate(int size) { return Faults().Fails(Fault::kSqliteMemory) ? nullptr : Memory().xMalloc(size); }
inline void* Reallocate(void* block, int size) {
    return Faults().Fails(Fault::kSqliteMemory) ? nullptr : Memory().xRealloc(block, size);
}

/// A file of the real system, with failures in front. The real one stands behind it in memory.
struct File {
    sqlite3_file base;
    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

inline File* Own(sqlite3_file* file) { return reinterpret_cast<File*>(file); }

inline sqlite3_vfs*& RealSystem() {
    static sqlite3_vfs* system = nullptr;
    return system;
}

/// The code to fail with, or SQLITE_OK.
inline int Write(int code) {
    if (Faults().Fails(Fault::kFull)) return SQLITE_FULL;
    return Faults().Fails(Fault::kDevice) ? code : SQLITE_OK;
}
inline int Device(int code) { return Faults().Fails(Fault::kDevice) ? code : SQLITE_OK; }
inline int Lock(int code) {
    if (Faults().Fails(Fault::kBusy)) return SQLITE_BUSY;
    return Faults().Fails(Fault::kDevice) ? code : SQLITE_OK;
}

inline const sqlite3_io_methods& FileMethods() {
    static const sqlite3_io_methods kMethods = [] {
        sqlite3_io_methods m{};
        m.iVersion = 2;
        m.xClose = [](sqlite3_file* f) {
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods ? real->pMethods->xClose(real) : SQLITE_OK;
        };
        m.xRead = [](sqlite3_file* f, void* to, int size, sqlite3_int64 at) {
            if (const int code = Device(SQLITE_IOERR_READ)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xRead(real, to, size, at);
        };
        m.xWrite = [](sqlite3_file* f, const void* from, int size, sqlite3_int64 at) {
            if (const int code = Write(SQLITE_IOERR_WRITE)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xWrite(real, from, size, at);
        };
        m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) {
            if (const int code = Device(SQLITE_IOERR_TRUNCATE)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xTruncate(real, size);
        };
        // The tests survive no loss of power: what is synced need not reach the disk.
        m.xSync = [](sqlite3_file*, int) {
            ++Faults().syncs;
            return Device(SQLITE_IOERR_FSYNC);
        };
        m.xFileSize = [](sqlite3_file* f, sqlite3_int64* size) {
            if (const int code = Device(SQLITE_IOERR_FSTAT)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xFileSize(real, size);
        };
        m.xLock = [](sqlite3_file* f, int level) {
            if (const int code = Lock(SQLITE_IOERR_LOCK)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xLock(real, level);
        };
        m.xUnlock = [](sqlite3_file* f, int level) {
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xUnlock(real, level);
        };
        m.xCheckReservedLock = [](sqlite3_file* f, int* held) {
            if (const int code = Device(SQLITE_IOERR_CHECKRESERVEDLOCK)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xCheckReservedLock(real, held);
        };
        m.xFileControl = [](sqlite3_file* f, int what, void* argument) {
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xFileControl(real, what, argument);
        };
        m.xSectorSize = [](sqlite3_file* f) {
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xSectorSize(real);
        };
        m.xDeviceCharacteristics = [](sqlite3_file* f) {
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xDeviceCharacteristics(real);
        };
        m.xShmMap = [](sqlite3_file* f, int page, int size, int extend, void volatile** to) {
            if (const int code = Device(SQLITE_IOERR_SHMMAP)) return code;
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xShmMap(real, page, size, extend, to);
        };
        m.xShmLock = [](sqlite3_file* f, int offset, int count, int flags) {
            if ((flags & SQLITE_SHM_LOCK) != 0) {
                if (const int code = Lock(SQLITE_IOERR_SHMLOCK)) return code;
            }
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xShmLock(real, offset, count, flags);
        };
        m.xShmBarrier = [](sqlite3_file* f) {
            sqlite3_file* real = Own(f)->Real();
            real->pMethods->xShmBarrier(real);
        };
        m.xShmUnmap = [](sqlite3_file* f, int erase) {
            sqlite3_file* real = Own(f)->Real();
            return real->pMethods->xShmUnmap(real, erase);
        };
        return m;
    }();
    return kMethods;
}

inline int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* opened) {
    file->pMethods = nullptr;
    if (const int code = Device(SQLITE_CANTOPEN)) return code;
    sqlite3_file* real = Own(file)->Real();
    std::memset(real, 0, static_cast<std::size_t>(RealSystem()->szOsFile));
    const int code = RealSystem()->xOpen(RealSystem(), name, real, flags, opened);
    if (real->pMethods) file->pMethods = &FileMethods();
    return code;
}

}  // namespace internal

/// Puts the failures between SQLite and memory and the operating system; to be called before SQLite is used. Waiting
/// takes no time from then on.
inline bool InstallStorageFaults() {
    using namespace internal;
    if (sqlite3_config(SQLITE_CONFIG_GETMALLOC, &Memory()) != SQLITE_OK) return false;
    static sqlite3_mem_methods memory = Memory();
    memory.xMalloc = Allocate;
    memory.xRealloc = Reallocate;
    if (sqlite3_config(SQLITE_CONFIG_MALLOC, &memory) != SQLITE_OK) return false;
    // Small blocks are to be counted, too.
    if (sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0) != SQLITE_OK) return false;
    RealSystem() = sqlite3_vfs_find(nullptr);
    if (!RealSystem()) return false;
    static sqlite3_vfs system = *RealSystem();
    system.zName = "faults";
    system.pNext = nullptr;
    system.szOsFile = static_cast<int>(sizeof(File)) + RealSystem()->szOsFile;
    system.xOpen = Open;
    system.xDelete = [](sqlite3_vfs*, const char* name, int sync) {
        if (const int failed = Device(SQLITE_IOERR_DELETE)) return failed;
        return RealSystem()->xDelete(RealSystem(), name, sync);
    };
    system.xAccess = [](sqlite3_vfs*, const char* name, int flags, int* result) {
        if (const int failed = Device(SQLITE_IOERR_ACCESS)) return failed;
        return RealSystem()->xAccess(RealSystem(), name, flags, result);
    };
    system.xSleep = [](sqlite3_vfs*, int microseconds) { return microseconds; };
    return sqlite3_vfs_register(&system, 1) == SQLITE_OK;
}

}  // namespace test_support
