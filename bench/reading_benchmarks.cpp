#include "bench/benchmarks.h"
#include "bench/file_side.h"
#include "bench/reading_kinds.h"

namespace zef::bench {

void RegisterReading(World& world) {
  RegisterPicks<FolderReading<FileSide>>(world, "GetFolder");
  RegisterPicks<EventReading<FileSide>>(world, "GetEvent with two children");
  RegisterLoad<FolderReading<FileSide>>(world, "LoadFoldersWithCriteria, a row");
  RegisterLoad<EventReading<FileSide>>(world, "LoadEventsWithCriteria, a row");
}

}  // namespace zef::bench
