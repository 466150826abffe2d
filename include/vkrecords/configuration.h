// Records of device configuration.
#ifndef VKRECORDS_CONFIGURATION_H
#define VKRECORDS_CONFIGURATION_H

#include "vkrecords/time_and_geometry.h"

/// Serial port of the device. Each field is an index into a table of settings.
struct VK_COMM_PROP {
    unsigned char byDataBit;   ///< 0 to 3: 5, 6, 7, 8 data bits
    unsigned char byStopBit;   ///< 0 to 2: 1, 1.5, 2 stop bits
    unsigned char byParity;    ///< 0 to 4: none, odd, even, mark, space
    unsigned char byBaudRate;  ///< 0 to 9: 300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200
};

/// Serial port of the device, as the configuration layer keeps it. Each field is an index into a table of settings.
struct tagCFG_COMM_PROP {
    unsigned char byDataBit;   ///< 0 to 3: 5, 6, 7, 8 data bits
    unsigned char byStopBit;   ///< 0 to 2: 1, 1.5, 2 stop bits
    unsigned char byParity;    ///< 0 to 4: none, odd, even, mark, space
    unsigned char byBaudRate;  ///< 0 to 9: 300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200
};

/// Mobile data. Texts are in the local encoding.
struct tagNET_NETAPP_WIRELESS {
    unsigned char byReserved[4];       ///< filled elsewhere in the client library
    bool bEnable;                      ///< mobile data is enabled
    int nIndex;                        ///< the device's index; read, never written
    int nKeepAlive;                    ///< keep-alive setting, in the device's unit
    int emAPN;                         ///< access point: -1 none, 0 the one in szAPN, 1 CTNET, 2 CMNET, 3 UNINET
    char szAPN[32];                    ///< access point name as sent, of a known one too
    int emAuthMode;                    ///< authentication: 0 unknown, 1 none, 2 PAP, 3 CHAP
    char szUserName[64];               ///< user name for dialling
    char szPassword[64];               ///< password for dialling
    bool bAutoDial;                    ///< dials by itself
    tagVK_TSECT stuTimeSection[7][6];  ///< allowed hours: the days of the week in the device's order
    int em3GFluxTactic;                ///< overall traffic policy: 0 unknown, 1 and 2 the device's 0 and 1
    unsigned int dw3GFluxUp;           ///< overall traffic ceiling, in the device's unit
    unsigned int dw3GFlux;             ///< overall traffic used, in the device's unit
    int emDay3GFluxTactic;             ///< daily traffic policy: 0 unknown, 1 by traffic, 2 by time
    unsigned int dwDay3GFluxUp;        ///< daily traffic ceiling, in the device's unit
    unsigned int dwDay3GFluxUse;       ///< daily traffic used, in the device's unit
    int emDay3GFluxAction;             ///< at the daily ceiling: 0 unknown, 1 does nothing, 2 takes the link down
    int emWorkMode;                    ///< radio mode: -1 unknown, 0 none of these, 1 CDMA1x, 2 EVDO, 3 TD-SCDMA,
                                       ///< 4 WCDMA, 5 EDGE, 6 TDD-LTE, 7 FDD-LTE
    char szDailNumber[32];             ///< number to dial
    bool bActivate;                    ///< activated
};

/// Invitation to an intercom talk.
struct tagALARM_TALKING_INVITE_INFO {
    unsigned char byReserved[4];  ///< filled elsewhere in the client library
    int emCallerType;             ///< 1 the management platform calls, 0 any other caller
};

/// Answer to a mission.
enum tagNET_MISSION_CONFIRM_TYPE : int {
    NET_MISSION_CONFIRM_UNKNOWN = 0,  ///< neither of the two below
    NET_MISSION_CONFIRM_YES = 1,      ///< confirmed
    NET_MISSION_CONFIRM_NO = 2        ///< declined
};

#endif
