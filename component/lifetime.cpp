#include "component/lifetime.h"

#include <atomic>
#include <cstdint>

namespace zef::component {
namespace {

constinit std::atomic<std::int64_t> living = 0;
constinit std::atomic<std::int64_t> locks = 0;

}  // namespace

void ObjectBegins() { living.fetch_add(1, std::memory_order_relaxed); }
void ObjectEnds() { living.fetch_sub(1, std::memory_order_release); }

void Lock() { locks.fetch_add(1, std::memory_order_relaxed); }

bool Unlock() {
  std::int64_t held = locks.load(std::memory_order_relaxed);
  while (held > 0) {
    if (locks.compare_exchange_weak(held, held - 1, std::memory_order_release, std::memory_order_relaxed)) return true;
  }
  return false;
}

bool NothingLives() {
  return living.load(std::memory_order_acquire) == 0 && locks.load(std::memory_order_acquire) == 0;
}

}  // namespace zef::component
