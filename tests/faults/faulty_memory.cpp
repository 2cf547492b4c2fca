#include "tests/faults/faulty_memory.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool counting = false;
thread_local int allocations = 0;
thread_local int to_fail = 0;

}  // namespace

/// Memory of this program's own C++ code; what the database engine asks for is not concerned.
void* operator new(std::size_t size) {
  if (counting && ++allocations == to_fail) throw std::bad_alloc();
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace zef::test {

void FaultyMemory::Arm(int number) {
  allocations = 0;
  to_fail = number;
  counting = true;
}

int FaultyMemory::Disarm() {
  counting = false;
  return allocations;
}

}  // namespace zef::test
