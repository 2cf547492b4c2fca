#include "component/lifetime.h"

#include <atomic>
#include <cstdint>

namespace zef::component {
namespace {

constinit std::atomic<std::int64_t> living = 0;

}  // namespace

void ObjectBegins() { living.fetch_add(1, std::memory_order_relaxed); }
void ObjectEnds() { living.fetch_sub(1, std::memory_order_release); }
bool NothingLives() { return living.load(std::memory_order_acquire) == 0; }

}  // namespace zef::component
