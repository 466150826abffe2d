// glaze is told where the members of messages go, and reads them to there. What is no number of a field's type goes
// through a function.
#include <glaze/glaze.hpp>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "benchmarks/text_to_record/peer.h"

namespace benchmarks {
namespace {

// ---- what members are read through

/// Calls take with a text.
template <class Take>
struct ByText {
    Take take;
};

/// Calls take with a Value.
template <class Value, class Take>
struct ByValue {
    Take take;
};
template <class Value, class Take>
ByValue<Value, Take> By(Take take) {
    return {take};
}

/// The first elements of an array. Those behind them are read, and not kept.
template <class Element>
class Bounded {
  public:
    using value_type = Element;
    using reference = Element&;

    Bounded(Element* elements, std::size_t most) : elements_(elements), most_(most) {}

    Element* begin() const { return elements_; }
    Element* end() const { return elements_ + size_; }
    std::size_t size() const { return size_; }
    void clear() { size_ = 0; }
    Element& emplace_back() { return size_ < most_ ? elements_[size_++] : beyond_; }

  private:
    Element* elements_;
    std::size_t most_;
    std::size_t size_ = 0;
    Element beyond_{};
};

/// Calls take with the first elements and their number.
template <class Element, std::size_t Most, class Take>
struct ByElements {
    Element* elements;
    Take take;
};
template <class Element, std::size_t Most, class Take>
ByElements<Element, Most, Take> ByFirst(Element (&elements)[Most], Take take) {
    return {elements, take};
}

template <auto Field>
constexpr auto kText =
    [](auto&& record) { return ByText{[&field = record.*Field](std::string_view text) { PutText(field, text); }}; };
template <auto Field>
constexpr auto kHeapText =
    [](auto&& record) { return ByText{[&field = record.*Field](std::string_view text) { field = HeapText(text); }}; };
template <auto Field, const auto& Words>
constexpr auto kWord = [](auto&& record) {
    return ByText{[&field = record.*Field](std::string_view text) {
        field = static_cast<std::remove_reference_t<decltype(field)>>(WordOf(Words, text, 0));
    }};
};
template <auto Field>
constexpr auto kBool = [](auto&& record) { return By<bool>([&field = record.*Field](bool value) { field = value; }); };
template <auto Field>
constexpr auto kPlusOne =
    [](auto&& record) { return By<int>([&field = record.*Field](int value) { field = value + 1; }); };
/// A colour's components, and that they were sent.
template <auto Field, auto Sent>
constexpr auto kColor = [](auto&& record) {
    return By<std::array<unsigned, 4>>([&record](const std::array<unsigned, 4>& components) {
        record.*Field = components[0] << 24 | components[1] << 16 | components[2] << 8 | components[3];
        record.*Sent = 1;
    });
};

/// Objects whose members go elsewhere than into a record of their own.
template <class Rect>
struct Boxed {
    Rect& box;
};
template <auto Field>
constexpr auto kBoxed = [](auto&& record) { return Boxed{record.*Field}; };
struct Similarity {
    unsigned char* colors;
};
template <auto Field>
constexpr auto kSimilarity = [](auto&& record) { return Similarity{record.*Field}; };
template <std::size_t Color>
constexpr auto kSimilarTo = [](auto&& similarity) -> auto& {
    return similarity.colors[Color];
};
struct Image {
    DetectedObject& object;
};
struct Walker {
    DetectedObject& object;
};
struct Synopsis {
    DetectedObject& object;
};
template <auto Field>
constexpr auto kOfObject = [](auto&& part) -> auto& {
    return part.object.*Field;
};

/// A message that a traffic event comes in.
struct Event {
    Car& car;
};
struct Events {
    Car& car;
};
struct Parameters {
    Car& car;
};
struct Notification {
    Car& car;
};

}  // namespace
}  // namespace benchmarks

namespace glz {

template <class Take>
struct from<JSON, benchmarks::ByText<Take>> {
    template <auto Options>
    static void op(auto&& by, is_context auto&& context, auto&& at, auto end) {
        const auto begin = at;
        std::string_view characters;
        from<JSON, std::string_view>::template op<Options>(characters, context, at, end);
        if (bool(context.error)) [[unlikely]]
            return;
        // A view is of the text as it stands.
        if (characters.find('\\') == characters.npos) [[likely]] {
            by.take(characters);
            return;
        }
        at = begin;
        std::string unescaped;
        from<JSON, std::string>::template op<Options>(unescaped, context, at, end);
        by.take(unescaped);
    }
};

template <>
struct from<JSON, tagCUSTOM_PERSON_INFO> {
    template <auto Options>
    static void op(auto&& info, is_context auto&& context, auto&& at, auto end) {
        benchmarks::ByText put{
            [&info](std::string_view characters) { benchmarks::PutText(info.szPersonInfo, characters); }};
        from<JSON, decltype(put)>::template op<Options>(put, context, at, end);
    }
};

template <>
struct from<JSON, tagCFG_TIME_SECTION> {
    template <auto Options>
    static void op(auto&& s, is_context auto&& context, auto&& at, auto end) {
        benchmarks::ByText scan{[&s](std::string_view characters) {
            benchmarks::Scan(characters, s.dwRecordMask, s.nBeginHour, s.nBeginMin, s.nBeginSec, s.nEndHour, s.nEndMin,
                             s.nEndSec);
        }};
        from<JSON, decltype(scan)>::template op<Options>(scan, context, at, end);
    }
};

template <class Value, class Take>
struct from<JSON, benchmarks::ByValue<Value, Take>> {
    template <auto Options>
    static void op(auto&& by, is_context auto&& context, auto&& at, auto end) {
        Value value{};
        from<JSON, Value>::template op<Options>(value, context, at, end);
        by.take(value);
    }
};

/// Of one event.
template <>
struct from<JSON, benchmarks::Events> {
    template <auto Options>
    static void op(auto&& events, is_context auto&& context, auto&& at, auto end) {
        std::tuple one{benchmarks::Event{events.car}};
        from<JSON, decltype(one)>::template op<Options>(one, context, at, end);
    }
};

template <class Element, std::size_t Most, class Take>
struct from<JSON, benchmarks::ByElements<Element, Most, Take>> {
    template <auto Options>
    static void op(auto&& by, is_context auto&& context, auto&& at, auto end) {
        benchmarks::Bounded<Element> elements(by.elements, Most);
        from<JSON, benchmarks::Bounded<Element>>::template op<Options>(elements, context, at, end);
        by.take(elements.size());
    }
};

// ---- where members go

template <>
struct meta<tagNET_RECT> {
    using T = tagNET_RECT;
    static constexpr auto value = array(&T::nLeft, &T::nTop, &T::nRight, &T::nBottom);
};
template <>
struct meta<VK_RECT> {
    using T = VK_RECT;
    static constexpr auto value = array(&T::nLeft, &T::nTop, &T::nRight, &T::nBottom);
};
template <>
struct meta<VK_POINT> {
    static constexpr auto value = array(&VK_POINT::nx, &VK_POINT::ny);
};
template <class Rect>
struct meta<benchmarks::Boxed<Rect>> {
    static constexpr auto value = object(
        "BoundingBox", [](auto&& boxed) -> auto& { return boxed.box; });
};

template <>
struct meta<tagSTEREO_GARAGE_INFO> {
    using T = tagSTEREO_GARAGE_INFO;
    static constexpr auto value = object("DeckNo", &T::nDeckNo, "FreeDeckCount", &T::nFreeDeckCount, "FullDeckCount",
                                         &T::nFullDeckCount, "TotalDeckCount", &T::nTotalDeckCount);
};

template <>
struct meta<benchmarks::Car> {
    using T = benchmarks::Car;
    // clang-format off
    static constexpr auto value = object(
        "PlateNumber", benchmarks::kText<&T::szPlateNumber>,
        "PlateType", benchmarks::kText<&T::szPlateTypeText>,
        "PlateColor", benchmarks::kText<&T::szPlateColor>,
        "VehicleColor", benchmarks::kText<&T::szVehicleColor>,
        "Speed", &T::nSpeed,
        "Event", benchmarks::kText<&T::szEvent>,
        "ViolationCode", benchmarks::kText<&T::szViolationCode>,
        "ViolationDesc", benchmarks::kText<&T::szViolationDesc>,
        "ViolationName", benchmarks::kText<&T::szViolationName>,
        "LowerSpeedLimit", &T::nLowerSpeedLimit,
        "UpperSpeedLimit", &T::nUpperSpeedLimit,
        "OverSpeedMargin", &T::nOverSpeedMargin,
        "UnderSpeedMargin", &T::nUnderSpeedMargin,
        "Lane", &T::nLane,
        "CustomParkNo", benchmarks::kText<&T::szCustomParkNo>,
        "VehicleSize", [](auto&& car) {
            return benchmarks::ByText{[&car](std::string_view characters) {
                const int place = benchmarks::WordOf(benchmarks::kVehicleSizes, characters, -1);
                car.nVehicleSize = place < 0 ? -1 : 1 << place;
            }};
        },
        "VehicleLength", &T::fVehicleLength,
        "DrivingDirection", [](auto&& car) {
            return benchmarks::By<std::array<std::string, 3>>([&car](const std::array<std::string, 3>& directions) {
                for (std::size_t i = 0; i < 3; ++i) benchmarks::PutText(car.szDrivingDirection[i], directions[i]);
            });
        },
        "SnapshotMode", &T::nSnapshotMode,
        "ChannelName", benchmarks::kText<&T::szChannelName>,
        "MachineName", benchmarks::kText<&T::szMachineName>,
        "MachineGroup", benchmarks::kText<&T::szMachineGroup>,
        "RoadwayNo", benchmarks::kText<&T::szRoadwayNo>,
        "CustomRoadwayDirection", benchmarks::kText<&T::szCustomRoadwayDirection>,
        "DeviceAddress", benchmarks::kHeapText<&T::pszDeviceAddress>,
        "DetailedAddress", benchmarks::kHeapText<&T::pszDetailedAddress>,
        "VehicleSign", benchmarks::kText<&T::szVehicleSign>,
        "Redundance", &T::byRedundance,
        "MachineAddress", benchmarks::kHeapText<&T::pszMachineAddress>,
        "ActualShutter", &T::fActualShutter,
        "ActualGain", &T::byActualGain,
        "Direction", &T::byDirection,
        "DefendCode", benchmarks::kText<&T::szDefendCode>,
        "TrafficBlackListID", &T::nTrafficBlackListID,
        "VehicleColorRGB", &T::dwVehicleColorRGB,
        "UTC", [](auto&& car) {
            return benchmarks::By<long long>([&car](long long seconds) {
                car.stuUTC = benchmarks::UtcTime<tagNET_TIME>(seconds);
            });
        },
        "RecNo", &T::dwRecNo,
        "StereoGarage", &T::stuStereoGarage,
        "Weight", &T::nWeight,
        "PhysicalLane", &T::byPhysicalLane,
        "MovingDirection", &T::emMovingDirection,
        // That it was sent: its time is the event's.
        "EleTagInfoUTC", [](auto&& car) -> auto& { return car.stuEleTagInfoUTC.dwYear; },
        "CarWindow", benchmarks::kBoxed<&T::stuCarWindowBox>);
    // clang-format on
};

/// A stamp's milliseconds stay with it until all stamps are read.
template <>
struct meta<tagNET_TIME_EX> {
    static constexpr auto value = object(
        "UTC",
        [](auto&& stamp) {
            return benchmarks::By<long long>([&stamp](long long seconds) {
                const unsigned milliseconds = stamp.dwMillisecond;
                stamp = benchmarks::UtcTime<tagNET_TIME_EX>(seconds);
                stamp.dwMillisecond = milliseconds;
            });
        },
        "UTCMS", &tagNET_TIME_EX::dwMillisecond);
};

template <>
struct meta<benchmarks::Similarity> {
    // clang-format off
    static constexpr auto value = object(
        "Red", benchmarks::kSimilarTo<0>,
        "Yellow", benchmarks::kSimilarTo<1>,
        "Green", benchmarks::kSimilarTo<2>,
        "Cyan", benchmarks::kSimilarTo<3>,
        "Blue", benchmarks::kSimilarTo<4>,
        "Purple", benchmarks::kSimilarTo<5>,
        "Black", benchmarks::kSimilarTo<6>,
        "White", benchmarks::kSimilarTo<7>);
    // clang-format on
};

template <>
struct meta<benchmarks::Image> {
    using T = benchmarks::DetectedObject;
    // clang-format off
    static constexpr auto value = object(
        "Offset", benchmarks::kOfObject<&T::dwOffset>,
        "Length", benchmarks::kOfObject<&T::dwFileLength>,
        "Width", benchmarks::kOfObject<&T::wWidth>,
        "Height", benchmarks::kOfObject<&T::wHeight>,
        "FilePath", [](auto&& image) { return benchmarks::kHeapText<&T::pszFilePath>(image.object); });
    // clang-format on
};

template <>
struct meta<benchmarks::Walker> {
    using T = benchmarks::DetectedObject;
    static constexpr auto value =
        object("Stature", benchmarks::kOfObject<&T::nStature>, "Direction", [](auto&& walker) {
            return benchmarks::kWord<&T::emDirection, benchmarks::kWalkingDirections>(walker.object);
        });
};

template <>
struct meta<benchmarks::Synopsis> {
    using T = benchmarks::DetectedObject;
    using Ends = std::vector<VK_POINT>;
    static constexpr auto value = object("Speed", benchmarks::kOfObject<&T::nSynopsisSpeed>, "Size",
                                         benchmarks::kOfObject<&T::nSynopsisSize>, "Direction", [](auto&& synopsis) {
                                             return benchmarks::By<Ends>([&object = synopsis.object](const Ends& ends) {
                                                 if (ends.size() != 2) return;
                                                 object.bSynopsisDirection = 1;
                                                 object.stuSynopsisStartPoint = ends[0];
                                                 object.stuSynopsisEndPoint = ends[1];
                                             });
                                         });
};

template <>
struct meta<benchmarks::DetectedObject> {
    using T = benchmarks::DetectedObject;
    // clang-format off
    static constexpr auto value = object(
        "ObjectID", &T::nObjectID,
        "RelativeID", &T::nRelativeID,
        "ObjectType", benchmarks::kText<&T::szObjectType>,
        "Category", benchmarks::kText<&T::szObjectCategory>,
        "Confidence", &T::nConfidence,
        "Action", benchmarks::kWord<&T::nAction, benchmarks::kActions>,
        "BoundingBox", &T::stuBoundingBox,
        "Center", &T::stuCenter,
        "Contour", [](auto&& object) {
            return benchmarks::ByFirst(object.stuContour, [&object](std::size_t count) {
                object.nPointNum = static_cast<int>(count);
            });
        },
        "MainColor", benchmarks::kColor<&T::dwMainColor, &T::bColor>,
        "LowerBodyColor", benchmarks::kColor<&T::dwLowerBodyColor, &T::bLowerBodyColor>,
        "Text", benchmarks::kText<&T::szText>,
        "SubText", benchmarks::kText<&T::szSubText>,
        "ShotFrame", benchmarks::kBool<&T::bShotFrame>,
        "Image", [](auto&& object) {
            object.bPicEnable = 1;
            return benchmarks::Image{object};
        },
        "CurrentTimeStamp", &T::stuCurrentTime,
        "StartTimeStamp", &T::stuStartTime,
        "EndTimeStamp", &T::stuEndTime,
        "OriginalBoundingBox", &T::stuOriginalBoundingBox,
        "Sign", benchmarks::kBoxed<&T::stuSignBoundingBox>,
        "CurrentSequence", &T::dwCurrentSequence,
        "BeginSequence", &T::dwBeginSequence,
        "EndSequence", &T::dwEndSequence,
        "BeginFileOffset", &T::nBeginFileOffset,
        "EndFileOffset", &T::nEndFileOffset,
        "TimeType", benchmarks::kWord<&T::byTimeType, benchmarks::kTimeTypes>,
        "ColorSimilar", benchmarks::kSimilarity<&T::byColorSimilar>,
        "UpperBodyColorSimilar", benchmarks::kSimilarity<&T::byUpperBodyColorSimilar>,
        "LowerBodyColorSimilar", benchmarks::kSimilarity<&T::byLowerBodyColorSimilar>,
        "Person", [](auto&& object) { return benchmarks::Walker{object}; },
        "SynopsisExtra", [](auto&& object) { return benchmarks::Synopsis{object}; });
    // clang-format on
};

template <>
struct meta<VK_PIC_INFO> {
    using T = VK_PIC_INFO;
    // clang-format off
    static constexpr auto value = object(
        "Offset", &T::dwOffset,
        "Length", &T::dwFileLength,
        "Width", &T::wWidth,
        "Height", &T::wHeight,
        "FilePath", benchmarks::kHeapText<&T::pszFilePath>,
        "IsDetected", benchmarks::kBool<&T::bIsDetected>);
    // clang-format on
};

template <>
struct meta<benchmarks::Person> {
    using T = benchmarks::Person;
    // clang-format off
    static constexpr auto value = object(
        "Name", benchmarks::kText<&T::szPersonName>,
        "Province", benchmarks::kText<&T::szProvince>,
        "City", benchmarks::kText<&T::szCity>,
        "ID", benchmarks::kText<&T::szID>,
        "Important", &T::byImportant,
        "Sex", benchmarks::kWord<&T::bySex, benchmarks::kSexes>,
        "CertificateType", benchmarks::kWord<&T::byCertificateType, benchmarks::kCertificates>,
        // A word, or a text, when another member says so: that may come behind it.
        "Type", [](auto&& person) {
            return benchmarks::ByText{[&person](std::string_view characters) {
                benchmarks::PutText(person.szCustomType, characters);
                person.byType = static_cast<unsigned char>(benchmarks::WordOf(benchmarks::kPersonTypes, characters, 0));
            }};
        },
        "Birthday", [](auto&& person) {
            return benchmarks::ByText{[&person](std::string_view characters) {
                benchmarks::Scan(characters, person.wYear, person.byMonth, person.byDay);
            }};
        },
        "Image", [](auto&& person) {
            return benchmarks::ByFirst(person.stuFacePicInfo, [&person](std::size_t count) {
                person.wFacePicNum = static_cast<unsigned short>(count);
            });
        },
        "UID", benchmarks::kText<&T::szUID>,
        "Country", benchmarks::kText<&T::szCountry>,
        "Comment", benchmarks::kText<&T::szComment>,
        "GroupID", benchmarks::kText<&T::szGroupID>,
        "IsCustomType", &T::byIsCustomType,
        "GroupName", benchmarks::kText<&T::szGroupName>,
        "Glasses", &T::byGlasses,
        "Age", &T::byAge,
        "Emotion", benchmarks::kWord<&T::emEmotion, benchmarks::kEmotions>,
        "HomeAddress", benchmarks::kText<&T::szHomeAddress>,
        "GlassesType", benchmarks::kWord<&T::emGlassesType, benchmarks::kGlasses>,
        "Race", benchmarks::kPlusOne<&T::emRace>,
        "Eye", benchmarks::kPlusOne<&T::emEye>,
        "Mouth", benchmarks::kPlusOne<&T::emMouth>,
        "Mask", benchmarks::kPlusOne<&T::emMask>,
        "Beard", benchmarks::kPlusOne<&T::emBeard>,
        "Attractive", &T::nAttractive,
        "FeatureState", &T::emFeatureState,
        "CustomPersonInfo", [](auto&& person) {
            return benchmarks::ByFirst(person.stuCustomPersonInfo, [&person](std::size_t count) {
                person.nCustomPersonInfoNum = static_cast<int>(count);
            });
        });
    // clang-format on
};

template <>
struct meta<benchmarks::Event> {
    static constexpr auto value = object(
        "TrafficCar", [](auto&& event) -> auto& { return event.car; });
};
template <>
struct meta<benchmarks::Parameters> {
    static constexpr auto value =
        object("Events", [](auto&& parameters) { return benchmarks::Events{parameters.car}; });
};
template <>
struct meta<benchmarks::Notification> {
    static constexpr auto value =
        object("params", [](auto&& notification) { return benchmarks::Parameters{notification.car}; });
};

}  // namespace glz

namespace benchmarks {
namespace {

/// Of what is passed over only the brackets and quotes are looked at, and nothing is said of bytes that are no UTF-8.
struct Skipping : glz::opts {
    bool validate_utf8 = false;

    constexpr Skipping() { error_on_unknown_keys = false; }
};
struct Checking : glz::opts {
    bool validate_skipped = true;
    bool validate_trailing_whitespace = true;

    constexpr Checking() { error_on_unknown_keys = false; }
};

template <class Options>
class Glaze : public Road {
  public:
    using Road::Road;

    void read(const Message& message, Car& car) override {
        std::memset(&car, 0, sizeof car);
        car.nVehicleSize = -1;
        car.byDirection = 8;
        if (message.isEvent()) {
            Notification notification{car};
            readInto(notification, message);
        } else {
            readInto(car, message);
        }
        if (car.stuEleTagInfoUTC.dwYear != 0) car.stuEleTagInfoUTC = car.stuUTC;
    }

    void read(const Message& message, DetectedObject& object) override {
        constexpr unsigned kNotSent = ~0U;
        std::memset(&object, 0, sizeof object);
        object.dwSize = sizeof object;
        tagNET_TIME_EX* const stamps[] = {&object.stuCurrentTime, &object.stuStartTime, &object.stuEndTime};
        for (tagNET_TIME_EX* stamp : stamps) stamp->dwMillisecond = kNotSent;
        readInto(object, message);
        unsigned latest = 0;
        for (tagNET_TIME_EX* stamp : stamps) {
            if (stamp->dwMillisecond != kNotSent) latest = stamp->dwMillisecond;
            stamp->dwMillisecond = 0;
        }
        object.stuCurrentTime.dwMillisecond = latest;
    }

    void read(const Message& message, Person& person) override {
        person.nAttractive = -1;
        readInto(person, message);
        if (person.byIsCustomType != 1) std::memset(person.szCustomType, 0, sizeof person.szCustomType);
    }

    void read(const Message& message, Schedule& schedule) override {
        std::memset(&schedule, 0, sizeof schedule);
        Bounded rows(schedule.stuTimeSection, 8);
        readInto(rows, message);
        schedule.bEnableHoliday = rows.size() == 8;
    }

  private:
    template <class Value>
    static void readInto(Value& value, const Message& message) {
        glz::context context;
        if (const auto error = glz::read<Options{}>(value, message.text(), context)) {
            throw std::runtime_error(glz::format_error(error, message.text()));
        }
    }
};

}  // namespace

void AddGlaze(Roads& roads) {
    const auto kind = Road::Kind::Other;
    roads.push_back(std::make_unique<Glaze<Skipping>>("glaze native", kind, Road::Checks::WhatIsRead));
    roads.push_back(std::make_unique<Glaze<Checking>>("glaze native, checking", kind, Road::Checks::Everything));
}

}  // namespace benchmarks
