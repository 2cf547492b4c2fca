#include "platform/local_time.h"

namespace zef {

std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  return local;
}

}  // namespace zef
