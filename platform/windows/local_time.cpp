#include "platform/local_time.h"

namespace zef {

std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_s(&local, &moment);
  return local;
}

}  // namespace zef
