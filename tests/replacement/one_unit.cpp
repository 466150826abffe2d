// A converter and the default that it calls, in one translation unit: what link-time optimisation makes of a shared
// library that has both. The call must still be left to the dynamic linker.
#include "vkprotocolstack/status/gps.cpp"
#include "vkprotocolstack/support/TranslateAlarmType.cpp"
