#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "benchmarks/literal/literal.h"

namespace literal {

int GetJsonTimeSchedule(const Json::Value& value, tagCFG_TIME_SCHEDULE& schedule) {
    std::memset(static_cast<void*>(&schedule), 0, sizeof schedule);
    if (!value.isArray() || value.empty()) return 0;
    const unsigned rows = std::min(value.size(), 8U);
    for (unsigned r = 0; r < rows; ++r) {
        if (!value[r].isArray()) continue;
        const unsigned segments = std::min(value[r].size(), 6U);
        for (unsigned s = 0; s < segments; ++s) {
            tagCFG_TIME_SECTION& section = schedule.stuTimeSection[r][s];
            const std::string text = value[r][s].asString();
            int mask = 0;
            const int converted =
                std::sscanf(text.c_str(), "%d %d:%d:%d-%d:%d:%d", &mask, &section.nBeginHour, &section.nBeginMin,
                            &section.nBeginSec, &section.nEndHour, &section.nEndMin, &section.nEndSec);
            if (converted >= 1) section.dwRecordMask = static_cast<unsigned>(mask);
            if (converted != 7) return 0;
        }
    }
    if (rows < 7) return 0;
    schedule.bEnableHoliday = rows == 8;
    return 1;
}

bool SetJsonTimeSchedule(Json::Value& value, const tagCFG_TIME_SCHEDULE& schedule) {
    const int rows = schedule.bEnableHoliday ? 8 : 7;
    for (int r = 0; r < rows; ++r) {
        for (int s = 0; s < 6; ++s) {
            const tagCFG_TIME_SECTION& section = schedule.stuTimeSection[r][s];
            char text[256] = {};
            std::snprintf(text, 255, "%d %02d:%02d:%02d-%02d:%02d:%02d", static_cast<int>(section.dwRecordMask),
                          section.nBeginHour, section.nBeginMin, section.nBeginSec, section.nEndHour, section.nEndMin,
                          section.nEndSec);
            value[r][s] = text;
        }
    }
    return true;
}

}  // namespace literal
