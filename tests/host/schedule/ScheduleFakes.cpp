#include "tests/host/schedule/ScheduleFakes.h"
