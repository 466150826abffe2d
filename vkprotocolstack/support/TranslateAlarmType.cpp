#include "vkprotocolstack/support/support.h"

int TranslateAlarmType(int deviceAlarmType) { return deviceAlarmType; }
