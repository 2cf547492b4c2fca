/// A fuzzer's program without libFuzzer: runs over the files and folders that it is given.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/support/input.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& place) {
  if (!fs::is_directory(place)) return {place};
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(place)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

/// False if the file cannot be read.
bool Replay(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) return false;
  std::fprintf(stderr, "%s\n", file.c_str());  // the last one told is the one that failed
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int count, char** places) {
  std::size_t run = 0;
  for (int i = 1; i < count; ++i) {
    for (const fs::path& file : FilesOf(places[i])) {
      if (!Replay(file)) {
        std::fprintf(stderr, "%s cannot be read\n", file.c_str());
        return 1;
      }
      ++run;
    }
  }
  std::fprintf(stderr, "%zu inputs\n", run);
  return run > 0 ? 0 : 1;
}
