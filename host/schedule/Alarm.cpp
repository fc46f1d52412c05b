#include "host/schedule/Alarm.h"
