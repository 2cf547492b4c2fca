#pragma once

/// What the typed classes of ZEFComponents.hpp stand on. Needs nothing but the system.

#include "ZEFComponents/automation.h"
#include "ZEFComponents/call.h"
#include "ZEFComponents/carried.h"
#include "ZEFComponents/date.h"
#include "ZEFComponents/date_text.h"
#include "ZEFComponents/elements.h"
#include "ZEFComponents/failure.h"
#include "ZEFComponents/given.h"
#include "ZEFComponents/library.h"
#include "ZEFComponents/object.h"
#include "ZEFComponents/property.h"
#include "ZEFComponents/registered.h"
#include "ZEFComponents/text.h"
#include "ZEFComponents/values.h"
