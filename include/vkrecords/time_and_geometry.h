// Times, schedules, rectangles, points and ranges: the small records that larger records are made of.
#ifndef VKRECORDS_TIME_AND_GEOMETRY_H
#define VKRECORDS_TIME_AND_GEOMETRY_H

/// Calendar time, the common form. No time zone is attached.
struct tagNET_TIME {
    unsigned int dwYear;    ///< full year, for example 2024
    unsigned int dwMonth;   ///< 1 to 12
    unsigned int dwDay;     ///< 1 to 31
    unsigned int dwHour;    ///< 0 to 23
    unsigned int dwMinute;  ///< 0 to 59
    unsigned int dwSecond;  ///< 0 to 59
};

/// Calendar time with milliseconds.
struct tagNET_TIME_EX {
    unsigned int dwYear;         ///< full year, for example 2024
    unsigned int dwMonth;        ///< 1 to 12
    unsigned int dwDay;          ///< 1 to 31
    unsigned int dwHour;         ///< 0 to 23
    unsigned int dwMinute;       ///< 0 to 59
    unsigned int dwSecond;       ///< 0 to 59
    unsigned int dwMillisecond;  ///< 0 to 999
    unsigned int dwUTC;          ///< UTC seconds where another layer fills them; cleared with the record only
    unsigned int dwReserved;     ///< cleared with the record only
};

/// Calendar time with milliseconds, as the configuration layer keeps it.
struct tagCFG_NET_TIME_EX {
    int nYear;         ///< full year, for example 2024
    int nMonth;        ///< 1 to 12
    int nDay;          ///< 1 to 31
    int nHour;         ///< 0 to 23
    int nMinute;       ///< 0 to 59
    int nSecond;       ///< 0 to 59
    int nMillisecond;  ///< 0 to 999
};

/// Time of day.
struct tagCFG_TIME {
    int nHour;    ///< 0 to 23
    int nMinute;  ///< 0 to 59
    int nSecond;  ///< 0 to 59
};

/// Device time packed into one 32-bit word, from the lowest bit up.
struct _VKDEVTIME {
    unsigned int second : 6;  ///< bits 0 to 5: 0 to 59
    unsigned int minute : 6;  ///< bits 6 to 11: 0 to 59
    unsigned int hour : 5;    ///< bits 12 to 16: 0 to 23
    unsigned int day : 5;     ///< bits 17 to 21: 1 to 31
    unsigned int month : 4;   ///< bits 22 to 25: 1 to 12
    unsigned int year : 6;    ///< bits 26 to 31: 0 to 63, relative to a base that is not stored
};

/// Rectangle in the wide form. Coordinates are the device's, unscaled.
struct VK_RECT {
    long long nLeft;    ///< left edge
    long long nTop;     ///< top edge
    long long nRight;   ///< right edge
    long long nBottom;  ///< bottom edge
};

/// Rectangle in the 32-bit form. Coordinates are the device's, unscaled.
struct tagNET_RECT {
    int nLeft;    ///< left edge
    int nTop;     ///< top edge
    int nRight;   ///< right edge
    int nBottom;  ///< bottom edge
};

/// Point. Coordinates are the device's, unscaled.
struct VK_POINT {
    short nx;  ///< horizontal coordinate
    short ny;  ///< vertical coordinate
};

/// Numeric range with an optional default and an optional step.
struct tagRANGE {
    float fMax;                    ///< upper bound
    float fMin;                    ///< lower bound
    bool bHasStep;                 ///< fStep is valid
    float fStep;                   ///< increment
    bool bHasDefault;              ///< fDefault is valid
    float fDefault;                ///< default value
    unsigned char byReserved[16];  ///< reserved
};

/// Time segment of a schedule.
struct tagVK_TSECT {
    int bEnable;     ///< 0 off, else on
    int nBeginHour;  ///< 0 to 23
    int nBeginMin;   ///< 0 to 59
    int nBeginSec;   ///< 0 to 59
    int nEndHour;    ///< 0 to 23
    int nEndMin;     ///< 0 to 59
    int nEndSec;     ///< 0 to 59
};

/// Time segment with a mask, as the configuration layer keeps it.
struct tagCFG_TIME_SECTION {
    unsigned int dwRecordMask;  ///< kinds of recording or alarm that the segment enables, one bit each
    int nBeginHour;             ///< 0 to 23
    int nBeginMin;              ///< 0 to 59
    int nBeginSec;              ///< 0 to 59
    int nEndHour;               ///< 0 to 23
    int nEndMin;                ///< 0 to 59
    int nEndSec;                ///< 0 to 59
};

/// Time segment with a mask.
struct tagNET_TIME_SECTION {
    unsigned int dwRecordMask;     ///< kinds of recording or alarm that the segment enables, one bit each
    int nBeginHour;                ///< 0 to 23
    int nBeginMin;                 ///< 0 to 59
    int nBeginSec;                 ///< 0 to 59
    int nEndHour;                  ///< 0 to 23
    int nEndMin;                   ///< 0 to 59
    int nEndSec;                   ///< 0 to 59
    unsigned char byReserved[80];  ///< filled elsewhere in the client library
};

/// Weekly schedule.
struct tagNET_CFG_TIME_SCHEDULE {
    bool bEnableHoliday;               ///< row 7 is in use
    tagVK_TSECT stuTimeSection[8][6];  ///< rows 0 to 6 the days of the week in the device's order, row 7 the holiday
};

/// Weekly schedule with masks, as the configuration layer keeps it.
struct tagCFG_TIME_SCHEDULE {
    bool bEnableHoliday;                       ///< row 7 is in use
    tagCFG_TIME_SECTION stuTimeSection[8][6];  ///< rows 0 to 6 the days of the week in the device's order, row 7 the
                                               ///< holiday
};

#endif
