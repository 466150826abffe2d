// Time segments, as schedules, time groups and other converters read and write them.
#ifndef VKPROTOCOLSTACK_TIME_TIME_SECTION_H
#define VKPROTOCOLSTACK_TIME_TIME_SECTION_H

#include "vkprotocolstack/wire/node.h"
#include "vkprotocolstack/wire/write.h"
#include "vkrecords/time_and_geometry.h"

namespace jsonparser {

inline int& FirstWord(tagVK_TSECT& section) { return section.bEnable; }
inline unsigned& FirstWord(tagCFG_TIME_SECTION& section) { return section.dwRecordMask; }
inline unsigned& FirstWord(tagNET_TIME_SECTION& section) { return section.dwRecordMask; }

/// The first word as writers print it.
inline int PrintedFirstWord(const tagVK_TSECT& section) { return section.bEnable; }
inline int PrintedFirstWord(const tagCFG_TIME_SECTION& section) { return static_cast<int>(section.dwRecordMask); }
/// Of this mask only the low byte goes to devices.
inline int PrintedFirstWord(const tagNET_TIME_SECTION& section) {
    return static_cast<unsigned char>(section.dwRecordMask);
}

/// Calls use with the seven words of a segment's text.
template <class Section, class Use>
[[gnu::always_inline]] inline bool WithWords(Section& section, Use use) {
    return use(FirstWord(section), section.nBeginHour, section.nBeginMin, section.nBeginSec, section.nEndHour,
               section.nEndMin, section.nEndSec);
}

inline constexpr NumberFormat<7> kLenientFormat = "%d %d:%d:%d-%d:%d:%d";

/// As the readers of schedules and time groups: any number of digits.
template <class Section>
[[gnu::noinline]] bool ReadAnyLenient(Node node, Section& section) {
    return WithWords(section, [node](auto&... word) { return node.scan(kLenientFormat, Signs::Allowed, word...); });
}

/// The same, faster for texts as most are.
template <class Section>
bool ReadLenient(Node node, Section& section) {
    const auto scan = [node](auto&... word) __attribute__((always_inline)) {
        return node.scanPlain(kLenientFormat, word...);
    };
    return WithWords(section, scan) || ReadAnyLenient(node, section);
}

/// As TimeSection::parse: at most two digits to a number of the times.
bool Read(Node node, tagVK_TSECT& section);

/// A segment's text.
template <class Section>
Json::Value Written(const Section& section) {
    return Printed("%d %02d:%02d:%02d-%02d:%02d:%02d", PrintedFirstWord(section), section.nBeginHour, section.nBeginMin,
                   section.nBeginSec, section.nEndHour, section.nEndMin, section.nEndSec);
}

}  // namespace jsonparser

#endif
