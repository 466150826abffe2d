// Records of face recognition.
#ifndef VKRECORDS_FACE_RECOGNITION_H
#define VKRECORDS_FACE_RECOGNITION_H

#include "vkrecords/time_and_geometry.h"

/// One picture of a message, with a path of any length.
struct VK_PIC_INFO {
    unsigned int dwOffset;         ///< offset of the picture in the message's binary data, in bytes
    unsigned int dwFileLength;     ///< length of the picture, in bytes
    unsigned short wWidth;         ///< width, in pixels
    unsigned short wHeight;        ///< height, in pixels
    char* pszFilePath;             ///< path on the device, heap text that the record owns; delete[] it
    unsigned char bIsDetected;     ///< 1 when a face was detected, 0 when none was
    unsigned char byReserved[15];  ///< filled elsewhere in the client library
};

/// One picture of a message, with a path of bounded length.
struct VK_PIC_INFO_EX3 {
    unsigned int dwOffset;         ///< offset of the picture in the message's binary data, in bytes
    unsigned int dwFileLength;     ///< length of the picture, in bytes
    unsigned short wWidth;         ///< width, in pixels
    unsigned short wHeight;        ///< height, in pixels
    char szFilePath[64];           ///< path on the device
    unsigned char bIsDetected;     ///< 1 when a face was detected, 0 when none was
    unsigned char byReserved[11];  ///< filled elsewhere in the client library
};

/// A person of the face database, first generation. The four caller's buffers belong to the caller, who sets each with
/// its length before the record is read; null means that the text is not wanted. The paths of the pictures are heap
/// texts that the record owns: release them (jsonparser::ReleaseTexts), and before the record is filled again.
/// Face features, which emEmotion holds too: 0 none, 1 wearing glasses, 2 smile, 3 anger, 4 sadness, 5 disgust, 6 fear,
/// 7 surprise, 8 neutral, 9 laugh, 10 no glasses, 11 happy, 12 confused, 13 scream, 14 sunglasses.
struct tagFACERECOGNITION_PERSON_INFO {
    char szPersonName[16];            ///< short name; when read, the custom category
    unsigned short wYear;             ///< year of birth
    unsigned char byMonth;            ///< month of birth, 1 to 12
    unsigned char byDay;              ///< day of birth, 1 to 31
    char szID[32];                    ///< certificate number
    unsigned char byImportant;        ///< importance rank
    unsigned char bySex;              ///< 0 unknown, 1 male, 2 female
    unsigned short wFacePicNum;       ///< pictures in stuFacePicInfo, 0 to 48
    VK_PIC_INFO stuFacePicInfo[48];   ///< face pictures
    unsigned char byType;             ///< 1 normal, 2 suspicion, 3 thief, 4 VIP, 5 fate check, 6 staff; 0 none of them
    unsigned char byCertificateType;  ///< 0 unknown, 1 identity card, 2 passport
    unsigned char byGlasses;          ///< glasses, the device's code
    unsigned char byAge;              ///< age in years
    char szProvince[64];              ///< province
    char szCity[64];                  ///< city
    char szPersonNameEx[64];          ///< name
    char szUID[32];                   ///< the person's identifier in the database
    char szCountry[3];                ///< country code of two letters
    unsigned char byIsCustomType;     ///< 1 when the category is the text in szPersonName, 0 when it is byType
    char* pszComment;                 ///< caller's buffer of byCommentLen bytes; the writer reads up to 100 bytes of it
    char* pszGroupID;                 ///< caller's buffer of byGroupIdLen bytes
    char* pszGroupName;               ///< caller's buffer of byGroupNameLen bytes
    char* pszFeatureValue;            ///< caller's buffer of byFeatureValueLen bytes
    unsigned char byGroupIdLen;       ///< bytes at pszGroupID
    unsigned char byGroupNameLen;     ///< bytes at pszGroupName
    unsigned char byFeatureValueLen;  ///< bytes at pszFeatureValue
    unsigned char byCommentLen;       ///< bytes at pszComment
    int emEmotion;                    ///< face feature, above
};

/// One piece of custom information on a person.
struct tagCUSTOM_PERSON_INFO {
    char szPersonInfo[64];          ///< text
    unsigned char byReserved[124];  ///< filled elsewhere in the client library
};

/// A person of the face database, second generation. The paths of the pictures are heap texts that the record owns, as
/// in the first generation.
struct tagFACERECOGNITION_PERSON_INFOEX {
    char szPersonName[64];            ///< name
    unsigned short wYear;             ///< year of birth
    unsigned char byMonth;            ///< month of birth, 1 to 12
    unsigned char byDay;              ///< day of birth, 1 to 31
    unsigned char byImportant;        ///< importance rank
    unsigned char bySex;              ///< 0 unknown, 1 male, 2 female
    char szID[32];                    ///< certificate number
    unsigned short wFacePicNum;       ///< pictures in stuFacePicInfo, 0 to 48
    VK_PIC_INFO stuFacePicInfo[48];   ///< face pictures
    unsigned char byType;             ///< 1 normal, 2 suspicion, 3 thief, 4 VIP, 5 fate check, 6 staff; 0 none of them
    unsigned char byCertificateType;  ///< 0 unknown, 1 identity card, 2 passport
    unsigned char byGlasses;          ///< glasses, the device's code
    unsigned char byAge;              ///< age in years
    char szProvince[64];              ///< province
    char szCity[64];                  ///< city
    char szUID[32];                   ///< the person's identifier in the database
    char szCountry[3];                ///< country code of two letters
    unsigned char byIsCustomType;     ///< 1 when the category is the text in szCustomType, 0 when it is byType
    char szCustomType[16];            ///< custom category
    char szComment[100];              ///< comment
    char szGroupID[64];               ///< identifier of the person's group
    char szGroupName[128];            ///< name of the person's group
    int emEmotion;                    ///< face feature, as in tagFACERECOGNITION_PERSON_INFO
    char szHomeAddress[128];          ///< home address
    int emGlassesType;                ///< 0 unknown, 1 sunglasses, 2 glasses
    int emRace;                       ///< the device's code plus one, 0 not reported
    int emEye;                        ///< the device's code plus one, 0 not reported
    int emMouth;                      ///< the device's code plus one, 0 not reported
    int emMask;                       ///< the device's code plus one, 0 not reported
    int emBeard;                      ///< the device's code plus one, 0 not reported
    int nAttractive;                  ///< attractiveness score, -1 not reported
    int emFeatureState;               ///< state of the feature extraction, the device's code
    unsigned char bAgeEnable;         ///< not 0 when nAgeRange is valid; written only
    int nAgeRange[2];                 ///< lowest and highest age in years; written only
    int nEmotionValidNum;             ///< valid entries of emEmotions; written only
    int emEmotions[32];               ///< face features, as emEmotion; written only
    int nCustomPersonInfoNum;         ///< entries in stuCustomPersonInfo, 0 to 4
    tagCUSTOM_PERSON_INFO stuCustomPersonInfo[4];  ///< custom information
    unsigned char byReserved[1148];                ///< filled elsewhere in the client library
};

/// A person of the face database that a captured face was matched with, first generation.
struct tagCANDIDATE_INFO {
    tagFACERECOGNITION_PERSON_INFO stuPersonInfo;  ///< the person
    unsigned char bySimilarity;                    ///< similarity score
    unsigned char byRange;                         ///< range, the device's code
    tagNET_TIME stuTime;                           ///< time of the match
    char szAddress[260];                           ///< place of the match
    unsigned char bIsHit;                          ///< 1 when the match counts, 0 when not
    VK_PIC_INFO_EX3 stuSceneImage;                 ///< picture of the scene
    int nChannelID;                                ///< channel number
};

/// A person of the face database that a captured face was matched with, second generation.
struct tagCANDIDATE_INFOEX {
    tagFACERECOGNITION_PERSON_INFOEX stuPersonInfo;  ///< the person
    unsigned char bySimilarity;                      ///< similarity score
    unsigned char byRange;                           ///< range, the device's code
    tagNET_TIME stuTime;                             ///< time of the match
    char szAddress[260];                             ///< place of the match
    unsigned char bIsHit;                            ///< 1 when the match counts, 0 when not
    VK_PIC_INFO_EX3 stuSceneImage;                   ///< picture of the scene
    int nChannelID;                                  ///< channel number
    char szSceneImagePath[256];                      ///< path of the scene's picture, longer than stuSceneImage has it
};

/// Extension data of an event.
struct tagNET_EXTENSION_INFO {
    char szEventLongID[52];  ///< long identifier of the event
};

/// Extension data of a human-trait event.
struct tagNET_HUMANTRAIT_EXTENSION_INFO {
    char szAdditionalCode[36];  ///< additional code of the event
};

#endif
