// Records of device status and diagnostics.
#ifndef VKRECORDS_DEVICE_STATUS_H
#define VKRECORDS_DEVICE_STATUS_H

#include "vkrecords/time_and_geometry.h"

/// Position report. The hemisphere is not part of it.
struct tagNET_GPS_INFO {
    unsigned int nLongitude;  ///< longitude in millionths of a degree, computed in single precision
    unsigned int nLatitude;   ///< latitude in millionths of a degree, computed in single precision
    double dbAltitude;        ///< altitude, in the device's unit
    double dbSpeed;           ///< speed, in the device's unit
    double dbBearing;         ///< bearing, in the device's unit
};

/// Time of a positioning receiver.
struct tagGPS_TIME {
    int nYear;    ///< full year, for example 2024
    int nMonth;   ///< 1 to 12
    int nDay;     ///< 1 to 31
    int nHour;    ///< 0 to 23
    int nMinute;  ///< 0 to 59
    int nSecond;  ///< 0 to 59
};

/// Status of a positioning receiver. The hemisphere is not part of it.
struct _NET_GPS_STATUS_INFO {
    tagGPS_TIME stuGpsTime;          ///< time of the receiver
    unsigned char byReserved1[56];   ///< filled elsewhere in the client library
    double dbLongitude;              ///< longitude in millionths of a degree, with a fraction
    double dbLatitude;               ///< latitude in millionths of a degree, with a fraction
    double dbAltitude;               ///< altitude, in the device's unit
    double dbBearing;                ///< bearing, in the device's unit
    double dbSpeed;                  ///< speed, in the device's unit
    unsigned short wSatelliteCount;  ///< number of satellites
    int bAntennasStatus;             ///< antenna in order: 0 false, 1 true, 2 not reported
    int bPositioningResult;          ///< positioned: 0 false, 1 true, 2 not reported
    int nWorkStatus;                 ///< working status, the device's code
    int nAlarmCount;                 ///< valid elements of nAlarmTypes, 0 to 128
    int nAlarmTypes[128];            ///< the library's alarm type codes
    unsigned char byReserved2[1];    ///< filled elsewhere in the client library
    unsigned char bySNR;             ///< signal-to-noise ratio, in the device's unit
    int emDateSource;                ///< source of the data: 0 GPS or unknown, 1 inertial navigation
};

/// The event that caused another event.
struct tagDEV_SRC_INFO {
    char szSrcEvent[32];        ///< name of the causing event
    tagNET_TIME_EX stuSrcTime;  ///< when it happened
    int nSrcChannel;            ///< channel on which it happened
};

/// One S.M.A.R.T. attribute of a hard disk, with the disk's own values.
struct tagNET_HDDSMART_INFO {
    int nID;          ///< attribute number
    int nCurrent;     ///< current normalised value
    char szName[64];  ///< attribute name
    int nWorst;       ///< worst normalised value so far
    int nThreshold;   ///< normalised value that counts as failure
    char szRaw[32];   ///< raw value, as text
    int nPredict;     ///< prediction code
    int nSync;        ///< synchronisation state, 0 or more; -1 not reported
};

#endif
