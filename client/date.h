#pragma once

#include "ZEFComponents/date.h"

namespace zef::client {

using automation::Date;

}  // namespace zef::client
