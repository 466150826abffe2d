// Records of video-analytics objects.
#ifndef VKRECORDS_ANALYTICS_H
#define VKRECORDS_ANALYTICS_H

#include "vkrecords/time_and_geometry.h"

#pragma pack(push, 4)

/// A detected object, first generation. Texts are in the local encoding. The file path is a heap text that the record
/// owns: release it with delete[] (or jsonparser::ReleaseTexts), and before the record is filled again.
/// A text that exactly fills its field has its terminator in the byte behind the field; a category of 62 bytes or more
/// goes on in the fields behind it.
/// Packed to 4 bytes: bind no reference to a 64-bit field, the pointer or a VK_RECT.
struct VK_MSG_OBJECT {
    int nObjectID;                             ///< object identifier
    char szObjectType[128];                    ///< object type word, for example "Vehicle"
    int nConfidence;                           ///< detection confidence, in the device's unit
    int nAction;                               ///< 1 appear, 2 move, 3 stay, 4 remove, 5 disappear, 6 split, 7 merge,
                                               ///< 8 rename; 0 unknown
    VK_RECT stuBoundingBox;                    ///< box in the picture
    VK_POINT stuCenter;                        ///< centre
    int nPointNum;                             ///< points of the outline, 0 to 16
    VK_POINT stuContour[16];                   ///< outline
    unsigned int dwMainColor;                  ///< main colour, first component in the highest byte; see bColor
    char szText[128];                          ///< recognised text, for a plate its characters
    char szObjectCategory[62];                 ///< object sub-type word
    unsigned short wCarLogoIndex;              ///< index of the vehicle maker's logo
    unsigned short wSubBrand;                  ///< vehicle sub-brand number
    unsigned char byReserved1;                 ///< filled elsewhere in the client library; cleared here
    unsigned char bPicEnable;                  ///< 1: the object has a picture, 0: none
    unsigned int dwOffset;                     ///< place of the picture in the event's binary data, in bytes
    unsigned int dwFileLength;                 ///< length of the picture, in bytes
    unsigned short wWidth;                     ///< width of the picture, in pixels
    unsigned short wHeight;                    ///< height of the picture, in pixels
    unsigned char byReserved2[4];              ///< filled elsewhere in the client library; cleared here
    char* pszFilePath;                         ///< path of the picture file, heap text; null when not sent
    unsigned char byReserved3[16];             ///< filled elsewhere in the client library; cleared here
    unsigned char bShotFrame;                  ///< 1: the picture is a snapshot frame, 0: it is not
    unsigned char bColor;                      ///< 1: dwMainColor was sent, 0: it was not
    unsigned char byReserved4;                 ///< filled elsewhere in the client library; cleared here
    unsigned char byTimeType;                  ///< 0 absolute time, 1 relative time
    tagNET_TIME_EX stuCurrentTime;             ///< time of the frame, UTC; its milliseconds are the last that any of
                                               ///< the three stamps gave
    tagNET_TIME_EX stuStartTime;               ///< begin of the track, UTC, without milliseconds
    tagNET_TIME_EX stuEndTime;                 ///< end of the track, UTC, without milliseconds
    VK_RECT stuOriginalBoundingBox;            ///< box in the coordinates of the full source picture
    VK_RECT stuSignBoundingBox;                ///< box of a sign at the object, for a vehicle its logo
    unsigned int dwCurrentSequence;            ///< sequence number of the frame
    unsigned int dwBeginSequence;              ///< sequence number of the frame in which the track begins
    unsigned int dwEndSequence;                ///< sequence number of the frame in which the track ends
    long long nBeginFileOffset;                ///< place in the recorded file at which the track begins, in bytes
    long long nEndFileOffset;                  ///< place in the recorded file at which the track ends, in bytes
    unsigned char byColorSimilar[8];           ///< similarity to red, yellow, green, cyan, blue, purple, black, white
    unsigned char byUpperBodyColorSimilar[8];  ///< the same of the upper body
    unsigned char byLowerBodyColorSimilar[8];  ///< the same of the lower body
    int nRelativeID;                           ///< identifier of a related object
    char szSubText[20];                        ///< secondary recognised text
    unsigned short wBrandYear;                 ///< model year of the vehicle brand
    unsigned char byReserved5[2];              ///< filled elsewhere in the client library; cleared here
};

/// A detected object, second generation: without the vehicle's brand, with a person's lower body colour, stature and
/// direction. What is said of VK_MSG_OBJECT holds here too.
struct tagVK_MSG_OBJECT_EX {
    unsigned int dwSize;                       ///< size of the record, 752
    int nObjectID;                             ///< object identifier
    char szObjectType[128];                    ///< object type word, for example "Vehicle"
    int nConfidence;                           ///< detection confidence, in the device's unit
    int nAction;                               ///< 1 appear, 2 move, 3 stay, 4 remove, 5 disappear, 6 split, 7 merge,
                                               ///< 8 rename; 0 unknown
    VK_RECT stuBoundingBox;                    ///< box in the picture
    VK_POINT stuCenter;                        ///< centre
    int nPointNum;                             ///< points of the outline, 0 to 16
    VK_POINT stuContour[16];                   ///< outline
    unsigned int dwMainColor;                  ///< main colour, first component in the highest byte; see bColor
    char szText[128];                          ///< recognised text, for a plate its characters
    char szObjectCategory[62];                 ///< object sub-type word
    unsigned char byReserved1[5];              ///< cleared, but for a category that goes on in them
    unsigned char bPicEnable;                  ///< 1: the object has a picture, 0: none
    unsigned int dwOffset;                     ///< place of the picture in the event's binary data, in bytes
    unsigned int dwFileLength;                 ///< length of the picture, in bytes
    unsigned short wWidth;                     ///< width of the picture, in pixels
    unsigned short wHeight;                    ///< height of the picture, in pixels
    unsigned char byReserved2[4];              ///< filled elsewhere in the client library; cleared here
    char* pszFilePath;                         ///< path of the picture file, heap text; null when not sent
    unsigned char byReserved3[16];             ///< filled elsewhere in the client library; cleared here
    unsigned char bShotFrame;                  ///< 1: the picture is a snapshot frame, 0: it is not
    unsigned char bColor;                      ///< 1: dwMainColor was sent, 0: it was not
    unsigned char bLowerBodyColor;             ///< 1: dwLowerBodyColor was sent, 0: it was not
    unsigned char byTimeType;                  ///< 0 absolute time, 1 relative time
    tagNET_TIME_EX stuCurrentTime;             ///< time of the frame, UTC; its milliseconds are the last that any of
                                               ///< the three stamps gave
    tagNET_TIME_EX stuStartTime;               ///< begin of the track, UTC, without milliseconds
    tagNET_TIME_EX stuEndTime;                 ///< end of the track, UTC, without milliseconds
    VK_RECT stuOriginalBoundingBox;            ///< box in the coordinates of the full source picture
    VK_RECT stuSignBoundingBox;                ///< box of a sign at the object, for a vehicle its logo
    unsigned int dwCurrentSequence;            ///< sequence number of the frame
    unsigned int dwBeginSequence;              ///< sequence number of the frame in which the track begins
    unsigned int dwEndSequence;                ///< sequence number of the frame in which the track ends
    long long nBeginFileOffset;                ///< place in the recorded file at which the track begins, in bytes
    long long nEndFileOffset;                  ///< place in the recorded file at which the track ends, in bytes
    unsigned char byColorSimilar[8];           ///< similarity to red, yellow, green, cyan, blue, purple, black, white
    unsigned char byUpperBodyColorSimilar[8];  ///< the same of the upper body
    unsigned char byLowerBodyColorSimilar[8];  ///< the same of the lower body
    int nRelativeID;                           ///< identifier of a related object
    char szSubText[20];                        ///< secondary recognised text
    int nStature;                              ///< a person's height, in the device's unit
    int emDirection;                           ///< walking direction: 0 unknown, 1 left to right, 2 right to left
    unsigned int dwLowerBodyColor;             ///< colour of the lower body, packed like dwMainColor
};

/// A detected object, third generation: the second and what a video synopsis says of the object's motion. What is said
/// of VK_MSG_OBJECT holds here too.
struct tagVK_MSG_OBJECT_EX2 {
    unsigned int dwSize;                       ///< size of the record, 2820
    int nObjectID;                             ///< object identifier
    char szObjectType[128];                    ///< object type word, for example "Vehicle"
    int nConfidence;                           ///< detection confidence, in the device's unit
    int nAction;                               ///< 1 appear, 2 move, 3 stay, 4 remove, 5 disappear, 6 split, 7 merge,
                                               ///< 8 rename; 0 unknown
    VK_RECT stuBoundingBox;                    ///< box in the picture
    VK_POINT stuCenter;                        ///< centre
    int nPointNum;                             ///< points of the outline, 0 to 16
    VK_POINT stuContour[16];                   ///< outline
    unsigned int dwMainColor;                  ///< main colour, first component in the highest byte; see bColor
    char szText[128];                          ///< recognised text, for a plate its characters
    char szObjectCategory[62];                 ///< object sub-type word
    unsigned char byReserved1[5];              ///< cleared, but for a category that goes on in them
    unsigned char bPicEnable;                  ///< 1: the object has a picture, 0: none
    unsigned int dwOffset;                     ///< place of the picture in the event's binary data, in bytes
    unsigned int dwFileLength;                 ///< length of the picture, in bytes
    unsigned short wWidth;                     ///< width of the picture, in pixels
    unsigned short wHeight;                    ///< height of the picture, in pixels
    unsigned char byReserved2[4];              ///< filled elsewhere in the client library; cleared here
    char* pszFilePath;                         ///< path of the picture file, heap text; null when not sent
    unsigned char byReserved3[16];             ///< filled elsewhere in the client library; cleared here
    unsigned char bShotFrame;                  ///< 1: the picture is a snapshot frame, 0: it is not
    unsigned char bColor;                      ///< 1: dwMainColor was sent, 0: it was not
    unsigned char bLowerBodyColor;             ///< 1: dwLowerBodyColor was sent, 0: it was not
    unsigned char byTimeType;                  ///< 0 absolute time, 1 relative time
    tagNET_TIME_EX stuCurrentTime;             ///< time of the frame, UTC; its milliseconds are the last that any of
                                               ///< the three stamps gave
    tagNET_TIME_EX stuStartTime;               ///< begin of the track, UTC, without milliseconds
    tagNET_TIME_EX stuEndTime;                 ///< end of the track, UTC, without milliseconds
    VK_RECT stuOriginalBoundingBox;            ///< box in the coordinates of the full source picture
    VK_RECT stuSignBoundingBox;                ///< box of a sign at the object, for a vehicle its logo
    unsigned int dwCurrentSequence;            ///< sequence number of the frame
    unsigned int dwBeginSequence;              ///< sequence number of the frame in which the track begins
    unsigned int dwEndSequence;                ///< sequence number of the frame in which the track ends
    long long nBeginFileOffset;                ///< place in the recorded file at which the track begins, in bytes
    long long nEndFileOffset;                  ///< place in the recorded file at which the track ends, in bytes
    unsigned char byColorSimilar[8];           ///< similarity to red, yellow, green, cyan, blue, purple, black, white
    unsigned char byUpperBodyColorSimilar[8];  ///< the same of the upper body
    unsigned char byLowerBodyColorSimilar[8];  ///< the same of the lower body
    int nRelativeID;                           ///< identifier of a related object
    char szSubText[20];                        ///< secondary recognised text
    int nStature;                              ///< a person's height, in the device's unit
    int emDirection;                           ///< walking direction: 0 unknown, 1 left to right, 2 right to left
    unsigned int dwLowerBodyColor;             ///< colour of the lower body, packed like dwMainColor
    int nSynopsisSpeed;                        ///< speed, in the device's unit
    int nSynopsisSize;                         ///< size, in the device's unit
    unsigned char bSynopsisDirection;          ///< 1: the two points below were sent, 0: they were not
    unsigned char byReserved4;                 ///< filled elsewhere in the client library; cleared here
    VK_POINT stuSynopsisStartPoint;            ///< where the direction of motion starts
    VK_POINT stuSynopsisEndPoint;              ///< where the direction of motion ends
    unsigned char byReserved5[2050];           ///< filled elsewhere in the client library; cleared here
};

#pragma pack(pop)

/// Attributes of a face that the device analysed. Codes of eye, mouth, mask, beard and nation are the device's plus 1.
struct tagNET_FACE_ATTRIBUTE_EX {
    int emSex;               ///< 0 unknown, 1 male, 2 female
    int nAge;                ///< in years
    int nComplexion;         ///< complexion, the device's code
    int emEye;               ///< state of the eyes: 0 unknown, else the device's code plus 1
    int emMouth;             ///< state of the mouth: 0 unknown, else the device's code plus 1
    int emMask;              ///< mask: 0 unknown, else the device's code plus 1
    int emBeard;             ///< beard: 0 unknown, else the device's code plus 1
    int nAttractive;         ///< attractiveness, the device's score
    int emGlass;             ///< glasses, the device's code; 0 also when not sent
    int emEmotion;           ///< 1 normal, 2 smile, 3 anger, 4 sadness, 5 disgust, 6 fear, 7 surprise, 8 neutral,
                             ///< 9 laugh, 10 happy, 11 confused, 12 scream; 0 unknown
    VK_RECT stuBoundingBox;  ///< box of the face
    int emNation;            ///< nation: 0 unknown, else the device's code plus 1
};

/// A colour in components, as the device sends them.
struct tagNONMOTOR_COLOR {
    int nRed;    ///< red
    int nGreen;  ///< green
    int nBlue;   ///< blue
    int nAlpha;  ///< alpha
};

/// The picture of a non-motor vehicle.
struct tagNONMOTOR_IMAGE {
    unsigned int dwOffset;          ///< place in the event's binary data, in bytes
    unsigned int dwFileLength;      ///< length, in bytes
    unsigned int dwWidth;           ///< width, in pixels
    unsigned int dwHeight;          ///< height, in pixels
    char szFilePath[260];           ///< path of the file, local encoding
    unsigned char byReserved[512];  ///< filled elsewhere in the client library
};

/// A scene in which a non-motor vehicle was found.
struct tagNONMOTOR_SCENE_IMAGE {
    unsigned int dwOffset;         ///< place in the event's binary data, in bytes
    unsigned int dwFileLength;     ///< length, in bytes
    unsigned int dwWidth;          ///< width, in pixels
    unsigned int dwHeight;         ///< height, in pixels
    unsigned char byReserved[56];  ///< filled elsewhere in the client library
};

/// The face picture of a rider.
struct tagNONMOTOR_FACE_IMAGE {
    unsigned int dwOffset;      ///< place in the event's binary data, in bytes
    unsigned int dwFileLength;  ///< length, in bytes
    unsigned int dwWidth;       ///< width, in pixels
    unsigned int dwHeight;      ///< height, in pixels
};

/// A rider of a non-motor vehicle. Colours as in tagVA_OBJECT_NONMOTOR.
struct tagNONMOTOR_RIDER_INFO {
    unsigned char bFeatureValid;                 ///< 1: the rider's attributes are valid, 0: they are not
    int emSex;                                   ///< 0 unknown, 1 male, 2 female
    int nAge;                                    ///< in years
    int nHelmet;                                 ///< helmet, the device's code
    int nCall;                                   ///< making a phone call, the device's code
    int nBag;                                    ///< bag, the device's code
    int nCarrierBag;                             ///< carrier bag, the device's code
    int nUmbrella;                               ///< umbrella, the device's code
    int nGlasses;                                ///< glasses, the device's code
    int nMask;                                   ///< mask, the device's code
    int emEmotion;                               ///< as in tagNET_FACE_ATTRIBUTE_EX
    int nUpClothes;                              ///< upper clothing, the device's code
    int nDownClothes;                            ///< lower clothing, the device's code
    int emUpperBodyColor;                        ///< colour of the upper body; 0 unknown
    int emLowerBodyColor;                        ///< colour of the lower body; 0 unknown
    unsigned char bFaceImage;                    ///< 1: stuFaceImage was sent, 0: it was not
    tagNONMOTOR_FACE_IMAGE stuFaceImage;         ///< face picture
    unsigned char byReserved1[48];               ///< filled elsewhere in the client library
    unsigned char bFaceAttributes;               ///< 1: stuFaceAttributes was sent, 0: it was not
    tagNET_FACE_ATTRIBUTE_EX stuFaceAttributes;  ///< face attributes
    unsigned char byReserved2[384];              ///< filled elsewhere in the client library
};

/// A non-motor vehicle and the people on it. How many riders were filled is not kept.
struct tagVA_OBJECT_NONMOTOR {
    int nObjectID;                              ///< object identifier
    int emCategory;                             ///< 1 tricycle, 2 motorcycle, 3 non-motor, 4 bicycle, 5 three-wheeled,
                                                ///< 6 light, 7 embassy, 8 marginal, 9 area-out, 10 foreign, 11 trial,
                                                ///< 12 coach motorcycle; 0 unknown
    VK_RECT stuBoundingBox;                     ///< box in the picture
    VK_RECT stuOriginalBoundingBox;             ///< box in the coordinates of the full source picture
    tagNONMOTOR_COLOR stuMainColor;             ///< main colour
    int emColor;                                ///< 1 white, 2 orange, 3 pink, 4 black, 5 red, 6 yellow, 7 grey,
                                                ///< 8 blue, 9 green, 10 purple, 11 brown, 12 silver, 13 dark violet,
                                                ///< 14 maroon, 15 dim grey, 16 white smoke, 17 dark orange, 18 misty
                                                ///< rose, 19 tomato, 20 olive, 21 gold, 22 dark olive green,
                                                ///< 23 chartreuse, 24 green yellow, 25 forest green, 26 sea green,
                                                ///< 28 deep sky blue, 29 cyan, 30 other; 0 unknown
    unsigned char bPicEnable;                   ///< 1: stuImage was sent
    tagNONMOTOR_IMAGE stuImage;                 ///< picture of the vehicle
    int nNumOfCycling;                          ///< people riding, the device's count
    tagNONMOTOR_RIDER_INFO stuRiderList[16];    ///< riders
    tagNONMOTOR_SCENE_IMAGE stuSceneImage;      ///< scene
    tagNONMOTOR_SCENE_IMAGE stuFaceSceneImage;  ///< scene in which the faces were found
    int nNumOfFace;                             ///< faces, the device's count
};

/// A bullet hole that a target analysis found.
struct tagNET_BULLET_HOLES_INFO {
    int nObjectID;                  ///< identifier of the hole
    char szObjectType[128];         ///< object type word, local encoding
    VK_RECT stuBoundingBox;         ///< box
    VK_POINT stuCenter;             ///< centre
    int nSequence;                  ///< sequence number
    int nScore;                     ///< score
    unsigned char byReserved[516];  ///< filled elsewhere in the client library; cleared here
};

#endif
