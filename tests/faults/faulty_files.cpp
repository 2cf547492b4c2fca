#include "tests/faults/faulty_files.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstddef>
#include <new>

namespace zef::test {
namespace {

using Kind = FaultyFiles::Kind;

constexpr const char* kName = "faulty";

struct {
  bool armed = false;
  Kind kind = Kind::Read;
  int calls = 0;
  int to_fail = 0;
} state;

/// Counts a call of a kind that could fail, and tells whether this one does.
bool Fails(Kind kind) {
  const bool same =
      kind == state.kind || (kind == Kind::Write && (state.kind == Kind::ShortWrite || state.kind == Kind::Full));
  if (!state.armed || !same) return false;
  ++state.calls;
  return state.to_fail > 0 && (state.kind == Kind::Full ? state.calls >= state.to_fail : state.calls == state.to_fail);
}

/// A file of this layer; the system's own file stands in the memory behind it.
struct File {
  sqlite3_file base;
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File& Of(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
const sqlite3_io_methods& Real(sqlite3_file* file) { return *Of(file).real()->pMethods; }
sqlite3_vfs* RealSystem(sqlite3_vfs* system) { return static_cast<sqlite3_vfs*>(system->pAppData); }

int Read(sqlite3_file* file, void* data, int amount, sqlite3_int64 offset) {
  return Fails(Kind::Read) ? SQLITE_IOERR_READ : Real(file).xRead(Of(file).real(), data, amount, offset);
}

int Write(sqlite3_file* file, const void* data, int amount, sqlite3_int64 offset) {
  if (!Fails(Kind::Write)) return Real(file).xWrite(Of(file).real(), data, amount, offset);
  if (state.kind == Kind::ShortWrite) Real(file).xWrite(Of(file).real(), data, amount / 2, offset);
  return state.kind == Kind::Write ? SQLITE_IOERR_WRITE : SQLITE_FULL;
}

int Sync(sqlite3_file* file, int flags) {
  return Fails(Kind::Sync) ? SQLITE_IOERR_FSYNC : Real(file).xSync(Of(file).real(), flags);
}

int Close(sqlite3_file* file) { return Real(file).xClose(Of(file).real()); }
int Truncate(sqlite3_file* file, sqlite3_int64 size) { return Real(file).xTruncate(Of(file).real(), size); }
int FileSize(sqlite3_file* file, sqlite3_int64* size) { return Real(file).xFileSize(Of(file).real(), size); }
int Lock(sqlite3_file* file, int level) { return Real(file).xLock(Of(file).real(), level); }
int Unlock(sqlite3_file* file, int level) { return Real(file).xUnlock(Of(file).real(), level); }
int CheckReservedLock(sqlite3_file* file, int* held) { return Real(file).xCheckReservedLock(Of(file).real(), held); }
int FileControl(sqlite3_file* file, int what, void* data) {
  return Real(file).xFileControl(Of(file).real(), what, data);
}
int SectorSize(sqlite3_file* file) { return Real(file).xSectorSize(Of(file).real()); }
int DeviceCharacteristics(sqlite3_file* file) { return Real(file).xDeviceCharacteristics(Of(file).real()); }
int ShmMap(sqlite3_file* file, int page, int size, int extend, void volatile** map) {
  return Real(file).xShmMap(Of(file).real(), page, size, extend, map);
}
int ShmLock(sqlite3_file* file, int offset, int count, int flags) {
  return Real(file).xShmLock(Of(file).real(), offset, count, flags);
}
void ShmBarrier(sqlite3_file* file) { Real(file).xShmBarrier(Of(file).real()); }
int ShmUnmap(sqlite3_file* file, int remove) { return Real(file).xShmUnmap(Of(file).real(), remove); }

constexpr sqlite3_io_methods kMethods = {2,
                                         &Close,
                                         &Read,
                                         &Write,
                                         &Truncate,
                                         &Sync,
                                         &FileSize,
                                         &Lock,
                                         &Unlock,
                                         &CheckReservedLock,
                                         &FileControl,
                                         &SectorSize,
                                         &DeviceCharacteristics,
                                         &ShmMap,
                                         &ShmLock,
                                         &ShmBarrier,
                                         &ShmUnmap,
                                         nullptr,
                                         nullptr};

/// What the system's own layer calls to read.
ssize_t ReadSome(int file, void* data, size_t amount) {
  return read(file, data, Fails(Kind::ShortRead) ? (amount + 1) / 2 : amount);
}

int Open(sqlite3_vfs* system, sqlite3_filename name, sqlite3_file* file, int flags, int* out_flags) {
  File& made = *new (file) File{};
  sqlite3_vfs* const real = RealSystem(system);
  const int code = real->xOpen(real, name, made.real(), flags, out_flags);
  made.base.pMethods = made.real()->pMethods != nullptr ? &kMethods : nullptr;
  return code;
}

}  // namespace

void FaultyFiles::Install() {
  static sqlite3_vfs system = [] {
    sqlite3_initialize();
    sqlite3_vfs* const real = sqlite3_vfs_find("unix");
    real->xSetSystemCall(real, "read", reinterpret_cast<sqlite3_syscall_ptr>(&ReadSome));
    sqlite3_vfs made = *real;
    made.szOsFile = static_cast<int>(sizeof(File)) + real->szOsFile;
    made.zName = kName;
    made.pAppData = real;
    made.pNext = nullptr;
    made.xOpen = &Open;
    return made;
  }();
  if (sqlite3_vfs_find(kName) != nullptr) return;
#ifdef ZEF_SYSTEM_SQLITE
  sqlite3_vfs_register(&system, 1);
#else
  sqlite3_vfs_register(&system, 0);
  sqlite3mc_vfs_create(kName, 1);
#endif
}

void FaultyFiles::Arm(int number) { state = {true, kind_, 0, number}; }

int FaultyFiles::Disarm() {
  state.armed = false;
  return state.calls;
}

}  // namespace zef::test
