// Records of traffic and vehicle events.
#ifndef VKRECORDS_TRAFFIC_H
#define VKRECORDS_TRAFFIC_H

#include "vkrecords/time_and_geometry.h"

/// Whether a vehicle's data are live.
enum tagEM_VEHICLE_DATA_TYPE : int {
    EM_VEHICLE_DATA_TYPE_UNKNOWN = 0,   ///< not sent, or a word that is not known
    EM_VEHICLE_DATA_TYPE_REALTIME = 1,  ///< live
    EM_VEHICLE_DATA_TYPE_HISTORY = 2    ///< from the device's store
};

/// The multi-storey garage in which a car was parked.
struct tagSTEREO_GARAGE_INFO {
    int nDeckNo;          ///< deck number
    int nFreeDeckCount;   ///< free decks
    int nFullDeckCount;   ///< full decks
    int nTotalDeckCount;  ///< decks in all
};

/// The vehicle of an intelligent-traffic event. Texts are in the local encoding. The three pointers are heap texts that
/// the record owns: release them with delete[] (or jsonparser::ReleaseTexts), and before the record is filled again.
/// A text that exactly fills its field has its terminator in the byte behind the field, which a later field may own.
struct tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO {
    char szPlateNumber[32];             ///< plate number
    char szPlateTypeText[32];           ///< plate type, UTF-8 as the device sent it
    char szPlateColor[32];              ///< plate colour
    char szVehicleColor[32];            ///< body colour
    int nSpeed;                         ///< speed, in the device's unit
    char szEvent[64];                   ///< related event, UTF-8 as the device sent it
    char szViolationCode[32];           ///< violation code, UTF-8 as the device sent it
    char szViolationDesc[64];           ///< violation description
    int nLowerSpeedLimit;               ///< lower speed limit, in the device's unit
    int nUpperSpeedLimit;               ///< upper speed limit, in the device's unit
    int nOverSpeedMargin;               ///< tolerance above the upper limit, in the device's unit
    int nUnderSpeedMargin;              ///< tolerance below the lower limit, in the device's unit
    int nLane;                          ///< lane number
    int nVehicleSize;                   ///< 1 light-duty, 2 medium, 4 oversize, 8 minisize, 16 largesize; -1 unknown
    float fVehicleLength;               ///< vehicle length, in the device's unit
    int nSnapshotMode;                  ///< snapshot mode, the device's code
    char szChannelName[32];             ///< channel name
    char szMachineName[256];            ///< machine name
    char szMachineGroup[256];           ///< machine group
    char szRoadwayNo[64];               ///< roadway number
    char szDrivingDirection[3][256];    ///< direction (UTF-8 as sent), from and to (local encoding)
    char* pszDeviceAddress;             ///< device address, heap text; null when not sent
    char szVehicleSign[32];             ///< maker's sign
    unsigned char byRedundance[8];      ///< redundant data, low byte of each element
    unsigned char byReserved1[120];     ///< filled elsewhere in the client library; cleared here
    char* pszMachineAddress;            ///< machine address, heap text; null when not sent
    float fActualShutter;               ///< shutter time of the snapshot, in the device's unit
    unsigned char byActualGain;         ///< gain of the snapshot, in the device's unit
    unsigned char byDirection;          ///< driving direction, the device's code; 8 unknown
    char* pszDetailedAddress;           ///< detailed address, heap text; null when not sent
    char szDefendCode[64];              ///< anti-counterfeiting code
    int nTrafficBlackListID;            ///< id of the matching list entry
    unsigned int dwVehicleColorRGB[4];  ///< body colour: red, green, blue, alpha
    tagNET_TIME stuUTC;                 ///< event time, UTC
    unsigned int dwRecNo;               ///< record number in the device's database
    char szCustomParkNo[33];            ///< parking space number
    tagSTEREO_GARAGE_INFO stuStereoGarage;  ///< garage in which the car was parked
    char szViolationName[64];               ///< violation name
    int nWeight;                            ///< weight, in the device's unit
    char szCustomRoadwayDirection[32];      ///< roadway direction as the user named it
    unsigned char byPhysicalLane;           ///< physical lane number
    unsigned int emMovingDirection;         ///< moving direction, the device's code
    tagNET_TIME stuEleTagInfoUTC;           ///< time of the electronic tag: the event time, UTC
    tagNET_RECT stuCarWindowBox;            ///< box of the car window in the picture
    unsigned char byReserved2[536];         ///< filled elsewhere in the client library; cleared here
};

/// Weighbridge data.
struct tagWEIGH_INFO {
    unsigned int dwRough;  ///< gross weight, in the device's unit
    unsigned int dwTare;   ///< tare weight, in the device's unit
    unsigned int dwNet;    ///< net weight, in the device's unit
};

/// Custom information of a junction event.
struct tagEVENT_JUNCTION_CUSTOM_INFO {
    tagWEIGH_INFO stuWeighInfo;  ///< weighbridge data
};

/// Vehicle of a vehicle event.
struct tagEVENT_VEHICLE_INFO {
    char szVehicleCategory[64];  ///< vehicle category word
};

/// Flow statistics of one lane. Texts are in the local encoding. A text that exactly fills its field has its terminator
/// in the byte behind the field, which a later field may own.
struct tagVK_TRAFFICFLOWSTAT {
    char szMachineAddress[256];      ///< machine address
    char szMachineName[256];         ///< machine name
    char szDrivingDirection[3][32];  ///< direction (UTF-8 as sent), from and to (local encoding)
    int nLane;                       ///< lane number
    tagNET_TIME_EX stuTime;          ///< time of the report, UTC
    int nPeriod;                     ///< length of the period, in the device's unit
    int nVehicles;                   ///< vehicles that passed in the period
    float fAverageSpeed;             ///< average speed, in the device's unit
    float fAverageLength;            ///< average vehicle length, in the device's unit
    float fTimeOccupyRatio;          ///< share of the time that the lane was occupied, as the device counts it
    float fSpaceOccupyRatio;         ///< share of the lane that was occupied, as the device counts it
    float fSpaceHeadway;             ///< distance between vehicles, in the device's unit
    float fTimeHeadway;              ///< time between vehicles, in the device's unit
    float fDensity;                  ///< vehicle density, in the device's unit
    int nOverSpeedVehicles;          ///< vehicles above the speed limit
    int nUnderSpeedVehicles;         ///< vehicles below the speed limit
    int nLargeVehicles;              ///< large vehicles
    int nMediumVehicles;             ///< medium vehicles
    int nSmallVehicles;              ///< small vehicles
    int nMotoVehicles;               ///< motorcycles
    int nLongVehicles;               ///< long vehicles
};

/// Flow statistics of one lane with its queue, road and state. It begins as tagVK_TRAFFICFLOWSTAT.
struct tagNET_TRAFFICFLOWSTATINFO {
    char szMachineAddress[256];      ///< machine address
    char szMachineName[256];         ///< machine name
    char szDrivingDirection[3][32];  ///< direction (UTF-8 as sent), from and to (local encoding)
    int nLane;                       ///< lane number
    tagNET_TIME_EX stuTime;          ///< time of the report, UTC
    int nPeriod;                     ///< length of the period, in the device's unit
    int nVehicles;                   ///< vehicles that passed in the period
    float fAverageSpeed;             ///< average speed, in the device's unit
    float fAverageLength;            ///< average vehicle length, in the device's unit
    float fTimeOccupyRatio;          ///< share of the time that the lane was occupied, as the device counts it
    float fSpaceOccupyRatio;         ///< share of the lane that was occupied, as the device counts it
    float fSpaceHeadway;             ///< distance between vehicles, in the device's unit
    float fTimeHeadway;              ///< time between vehicles, in the device's unit
    float fDensity;                  ///< vehicle density, in the device's unit
    int nOverSpeedVehicles;          ///< vehicles above the speed limit
    int nUnderSpeedVehicles;         ///< vehicles below the speed limit
    int nLargeVehicles;              ///< large vehicles
    int nMediumVehicles;             ///< medium vehicles
    int nSmallVehicles;              ///< small vehicles
    int nMotoVehicles;               ///< motorcycles
    int nLongVehicles;               ///< long vehicles
    double dBackOfQueue;             ///< length of the queue, in the device's unit
    int emRank;                      ///< rank of the road: 1 rapid, 2 trunk, 3 sub-trunk, 4 branch; 0 unknown
    int nState;                      ///< traffic state, the device's code
};

#endif
