#include "vkprotocolstack/vocabulary.h"

#include <iterator>

#include "vkprotocolstack/analytics/face_attributes_keywords.h"
#include "vkprotocolstack/analytics/non_motor_keywords.h"
#include "vkprotocolstack/analytics/object_keywords.h"
#include "vkprotocolstack/config/intercom_keywords.h"
#include "vkprotocolstack/config/mobile_data_keywords.h"
#include "vkprotocolstack/config/serial_port_keywords.h"
#include "vkprotocolstack/face/database_type_keywords.h"
#include "vkprotocolstack/face/person_keywords.h"
#include "vkprotocolstack/status/fault_keywords.h"
#include "vkprotocolstack/status/gps_keywords.h"
#include "vkprotocolstack/status/log_type_keywords.h"
#include "vkprotocolstack/status/resolution_keywords.h"
#include "vkprotocolstack/traffic/flow_statistics_keywords.h"
#include "vkprotocolstack/traffic/vehicle_size_keywords.h"
#include "vkprotocolstack/traffic/vehicle_words_keywords.h"

namespace jsonparser {
namespace {

template <std::size_t N>
constexpr Vocabulary Of(std::string_view name, std::string_view meaning, const Keyword (&rows)[N]) {
    return {name, meaning, rows, N};
}

constexpr Vocabulary kVocabularies[] = {
    Of("PlateColor", "colour of a number plate", kPlateColours),
    Of("VehicleType", "kind of a vehicle", kVehicleKinds),
    Of("VehicleColor", "body colour of a vehicle", kBodyColours),
    Of("PlateType", "kind of a number plate; the first \"Other\" counts", kPlateKinds),
    Of("VehicleDataType", "whether a vehicle record is live", kVehicleDataTypes),
    Of("StrobeState", "state of the strobe light", kStrobeStates),
    Of("SeatBelt", "whether a seat belt is worn", kSeatBeltStates),
    Of("VehicleSize", "size of a vehicle, one bit for each word", kVehicleSizes),
    Of("RoadRank", "rank of a road", kRoadRanks),
    Of("ObjectAction", "what a detected object does", kObjectActions),
    Of("TimeType", "whether an object's times are absolute", kObjectTimeTypes),
    Of("WalkingDirection", "direction in which a person walks", kWalkingDirections),
    Of("NonMotorCategory", "kind of a non-motor vehicle", kNonMotorCategories),
    Of("NonMotorColor", "colour of a non-motor vehicle or of clothes; the first \"Chartreuse\" counts",
       kNonMotorColors),
    Of("FaceSex", "sex of a face", kFaceSexes),
    Of("FaceEmotion", "emotion of a face", kFaceEmotions),
    Of("Sex", "sex of a person", kSexes),
    Of("CertificateType", "certificate of a person", kCertificateTypes),
    Of("PersonType", "category of a person", kPersonTypes),
    Of("FeatureType", "feature or emotion of a person's face", kFeatureTypes),
    Of("GlassesType", "glasses of a person", kGlassesTypes),
    Of("FaceDBType", "type of a face database", kFaceDatabaseTypes),
    Of("StorageError", "fault of a storage", kStorageErrors),
    Of("RaidError", "fault of an array of disks", kRaidErrors),
    Of("LogType", "kind of a log; contained in its name, the first row wins", kLogTypes),
    Of("DateSource", "source of a position", kDateSources),
    Of("Resolution", "video resolution", kResolutions),
    Of("Parity", "parity of a serial port", kParities),
    Of("StopBits", "stop bits of a serial port", kStopBits),
    Of("APN", "access point of mobile data", kWirelessApns),
    Of("AuthMode", "authentication of mobile data", kWirelessAuthModes),
    Of("FluxTactic", "daily traffic policy of mobile data", kWirelessTactics),
    Of("FluxAction", "what happens at the daily traffic ceiling", kWirelessFluxActions),
    Of("WorkMode", "radio mode of mobile data", kWirelessWorkModes),
    Of("CallerType", "who calls in an intercom invitation", kCallerTypes),
    Of("MissionConfirm", "answer to a mission", kMissionConfirmations),
};

}  // namespace

VocabularyList Vocabularies() { return {kVocabularies, std::size(kVocabularies)}; }

}  // namespace jsonparser
