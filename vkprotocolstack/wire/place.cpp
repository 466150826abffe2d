#include "vkprotocolstack/wire/place.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>

#include "vkprotocolstack/support/support.h"
#include "vkprotocolstack/wire/copied_text.h"
#include "vkprotocolstack/wire/numbers.h"
#include "vkprotocolstack/wire/observer.h"
#include "vkprotocolstack/wire/text_entry.h"

namespace jsonparser {
namespace {

/// Integer of 32 bits.
template <class Integer>
Integer IntegerOf(Json::ValueType type, const Json::Value* value) {
    switch (type) {
        case Json::intValue:
            return static_cast<Integer>(value->as<Json::LargestInt>());
        case Json::uintValue:
            return static_cast<Integer>(value->asLargestUInt());
        case Json::realValue:
            return Truncate<Integer>(value->asDouble());
        case Json::booleanValue:
            return value->asBool() ? 1 : 0;
        default:
            return 0;
    }
}

/// Of an entry that is no Integer.
template <class Integer>
Integer IntegerOf(const TextEntry& entry) {
    switch (entry.type) {
        case TextType::Unsigned:
            return static_cast<Integer>(entry.unsignedInteger);
        case TextType::Real:
            return Truncate<Integer>(entry.real);
        case TextType::True:
            return 1;
        default:
            return 0;
    }
}

/// A text on the tape as a text of jsoncpp that takes no memory: with a terminator, on the stack unless it is long.
class TextCopy {
  public:
    /// Of the text, what a field of size bytes needs at most: a local character has four bytes of UTF-8 or fewer.
    TextCopy(const TextEntry& entry, int size) {
        text_[0] = '\0';
        const std::size_t needed = 4 * static_cast<std::size_t>(std::max(size, 0));
        const bool isPlain = entry.isPlainText();
        const std::size_t room = isPlain ? std::min<std::size_t>(entry.size, needed) : entry.size;
        if (room >= sizeof inline_) {
            long_.reset(new (std::nothrow) char[room + 1]);
            if (long_ == nullptr) return;
            text_ = long_.get();
        }
        if (isPlain) std::memcpy(text_, entry.text, room);
        text_[isPlain ? room : Unescape(entry, text_)] = '\0';
    }

    /// The empty text where there was no memory.
    Json::Value value() const { return Json::StaticString(text_); }

  private:
    char inline_[1100];
    char* text_ = inline_;
    std::unique_ptr<char[]> long_;
};

/// What is known of a value by its type, in a tree whose texts are converted, and in one whose texts are copied.
constexpr Place::Known kKnownOfTypes[][8] = {
    {Place::kNothing, Place::kInteger, Place::kNothing, Place::kNothing, Place::kNothing,    Place::kNothing,
     Place::kNothing, Place::kNothing},
    {Place::kCopying, Place::kInteger, Place::kCopying, Place::kCopying, Place::kCopiedText, Place::kCopying,
     Place::kCopying, Place::kCopying},
};
static_assert(Json::nullValue == 0 && Json::intValue == 1 && Json::stringValue == 4 && Json::objectValue == 7);

/// What is false or true reads alike in a tree and on a tape. On a tape that takes no call into another library.
Place PlaceOf(bool value) {
    static constexpr TextEntry kEntries[] = {
        {{0}, {nullptr}, 0, 0, TextType::False},
        {{0}, {nullptr}, 0, 0, TextType::True }
    };
    return Place(&kEntries[value ? 1 : 0]);
}

/// The row of the name among the sorted ones, of which it is next or comes behind it; null when it is none of them.
[[gnu::noinline]] const SortedName* FindFrom(const SortedName* next, const NameIndex& names, const char* name,
                                             std::size_t size) {
    const std::size_t slot = names.find(name, size);
    if (slot == 0) return nullptr;
    while (next->index != slot - 1) ++next;
    return next;
}

/// Looks up the names in object; what is no object has none of them. Apart from the next: each has a frame that the
/// other need not set up. It begins with a cache line, so that code before it does not decide how it lies.
[[gnu::noinline, gnu::aligned(64)]] void FindMembers(const Json::Value& object, bool copies, const NameIndex& names,
                                                     Place* places) {
    constexpr std::size_t kMembersALookup = 8;  // that a walk visits while one name is looked up
    std::fill_n(places, names.count, Place());
    std::size_t left = object.size();
    if (left / kMembersALookup > names.count) {
        if (object.type() != Json::objectValue) return;
        for (std::size_t i = 0; i < names.count; ++i) places[i] = Place(FindMember(object, names.names[i]));
        return;
    }
    if (left == 0) return;
    // jsoncpp keeps members in the order of their names' bytes: each is either the next of the sorted names or comes
    // before it and is none of them, unless some of the names are missing.
    const Place::Known* const known = kKnownOfTypes[copies || CopiesTexts() ? 1 : 0];
    const SortedName* next = names.sorted;
    const SortedName* const end = next + names.count;
    for (auto member = BeginOf(object);; ++member) {
        const char* nameEnd;
        const char* const name = member.memberName(&nameEnd);
        if (name == nullptr) return;  // an array's element
        const auto size = static_cast<std::size_t>(nameEnd - name);
        if (next->size != size || !SameBytes(next->text, name, size)) [[unlikely]] {
            const SortedName* const row = FindFrom(next, names, name, size);
            if (row == nullptr) {
                if (--left == 0) return;
                continue;
            }
            next = row;
        }
        const Json::Value& value = *member;
        const Json::ValueType type = value.type();
        places[next->index] = type == Json::booleanValue ? PlaceOf(value.asBool()) : Place(value, known[type]);
        if (++next == end) return;
        if (--left == 0) return;
    }
}

/// The same of an object on the tape that was not matched against these names.
[[gnu::noinline]] void FindOnTape(const TextEntry& object, const NameIndex& names, Place* found) {
    std::fill_n(found, names.count, Place());
    const TextEntry* child = object.first();
    const TextEntry* const end = object.behind();
    const std::string_view* next = names.names;
    const std::string_view* const last = next + names.count;
    Place* slot = found;
    for (; child != end; child = child->next()) {
        if (next == last || next->size() != child->nameSize || !SameBytes(next->data(), child->name, child->nameSize)) {
            const std::size_t index = names.find(child->name, child->nameSize);
            if (index == 0) continue;
            next = names.names + index - 1;
            slot = found + index - 1;
        }
        ++next;
        *slot++ = Place(child);
    }
}

/// Null where there is no memory for the tree.
Json::Value TreeOrNull(const TextEntry& entry) {
    try {
        return TreeOf(entry);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

/// The text of what is not a text as it stands, kept in storage; empty where there is no memory.
std::string_view MadeText(const TextEntry& entry, std::string& storage) {
    try {
        switch (entry.type) {
            case TextType::EscapedText:
                storage.resize(entry.size);
                storage.resize(Unescape(entry, storage.data()));
                return storage;
            case TextType::Null:
            case TextType::Watched:
            case TextType::Array:
            case TextType::Object:
                return {};
            default:
                storage = ScalarOf(entry).asString();
                return storage;
        }
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace

bool Place::otherIsInt() const {
    if (!isOnTape()) return bits_ != 0 && address()->isInt();
    return isReal() && ScalarOf(entry()).isInt();
}

bool Place::otherIsUInt() const {
    if (!isOnTape()) return bits_ != 0 && address()->isUInt();
    return isReal() && ScalarOf(entry()).isUInt();
}

int Place::ConvertedToInt(Place place) {
    return place.isOnTape() ? IntegerOf<int>(place.entry()) : IntegerOf<int>(place.type(), place.address());
}

unsigned Place::ConvertedToUInt(Place place) {
    return place.isOnTape() ? IntegerOf<unsigned>(place.entry()) : IntegerOf<unsigned>(place.type(), place.address());
}

double Place::ConvertedToDouble(Place place) {
    if (place.isOnTape()) {
        const TextEntry& e = place.entry();
        if (e.type == TextType::Unsigned) return static_cast<double>(e.unsignedInteger);
        return e.type == TextType::True ? 1.0 : 0.0;
    }
    switch (place.type()) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            return place.address()->asDouble();
        default:
            return 0.0;
    }
}

bool Place::asBool() const {
    if (isOnTape()) {
        const TextEntry& e = entry();
        if (e.type <= TextType::True) return e.type == TextType::True;
        return e.type == TextType::Real ? ScalarOf(e).asBool() : asDouble() != 0.0;
    }
    const Json::ValueType type = this->type();
    if (type == Json::booleanValue) return address()->asBool();
    switch (type) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
            return address()->asBool();
        default:
            return false;
    }
}

bool Place::is32Bits() const {
    if (isOnTape()) {
        const TextEntry& e = entry();
        if (e.type == TextType::Integer) return e.integer >= INT_MIN && e.integer <= Json::LargestInt{UINT_MAX};
        return e.type == TextType::Real || e.type == TextType::True || e.type == TextType::False;
    }
    switch (type()) {
        case Json::intValue:
            return address()->asLargestInt() >= INT_MIN && address()->asLargestInt() <= Json::LargestInt{UINT_MAX};
        case Json::uintValue:
            return address()->asLargestUInt() <= UINT_MAX;
        case Json::realValue:
        case Json::booleanValue:
            return true;
        default:
            return false;
    }
}

std::string_view Place::otherText(std::string& storage) const {
    if (isOnTape()) return MadeText(entry(), storage);
    switch (type()) {
        case Json::intValue:
        case Json::uintValue:
        case Json::realValue:
        case Json::booleanValue:
            storage = address()->asString();
            return storage;
        default:
            return {};
    }
}

std::string_view Place::TextOf(const Json::Value& value) {
    const char* begin = "";
    const char* end = begin;
    value.getString(&begin, &end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

void Place::CopyTextOf(const Json::Value& value, char* field, std::size_t limit) {
    CopyText(UpToNul(TextOf(value)).substr(0, limit), field);
}

bool Place::CopiesTextOf(const Json::Value& value, char* field, int size) {
    const std::string_view text = UpToNul(TextOf(value));
    if (static_cast<std::int64_t>(text.size()) >= size) return false;
    CopyText(text, field);
    return true;
}

bool Place::convertedStringTo(char* field, int size) const {
    if (!isOnTape()) {
        if (const Place place = typed(); place.bits_ != bits_ && place.copiesTo(field, size)) return true;
        return GetJsonString(exists() ? *address() : Json::Value::nullSingleton(), field, size, true);
    }
    if (type() == Json::stringValue) return GetJsonString(TextCopy(entry(), size).value(), field, size, true);
    return GetJsonString(ScalarOf(entry()), field, size, true);
}

void Place::renderTextTo(char* field, int size) const {
    if (!CopiesTextOf(*address(), field, size)) convertedRenderTo(field, size);
}

void Place::convertedRenderTo(char* field, int size) const {
    if (!isOnTape()) {
        if (const Place place = typed(); place.bits_ != bits_ && place.copiesTo(field, size)) return;
        parseJsonNodeToStr(exists() ? *address() : Json::Value::nullSingleton(), field, size);
    } else if (type() == Json::stringValue) {
        parseJsonNodeToStr(TextCopy(entry(), size).value(), field, size);
    } else {
        parseJsonNodeToStr(TreeOrNull(entry()), field, size);
    }
}

Place Place::member(std::string_view name) const {
    if (type() != Json::objectValue) return isWatched() ? trail().member(name) : Place();
    if (!isOnTape()) return under(FindMember(*address(), name));
    Place found{};  // of members with the same name the last one counts
    const TextEntry* child = entry().first();
    for (std::size_t left = entry().size; left > 0; --left, child = child->next()) {
        if (child->nameSize == name.size() && SameBytes(child->name, name.data(), name.size())) found = Place(child);
    }
    return found;
}

Place Place::WatchedElement(Place watched, std::size_t index) { return watched.trail().element(index); }

void Place::watchedMembers(const NameIndex& names, Place* found) const {
    std::transform(names.names, names.names + names.count, found,
                   [this](std::string_view name) { return trail().member(name); });
}

void Place::members(const NameIndex& names, Place* found) const {
    if (!isOnTape()) {
        if (exists()) return FindMembers(*address(), knownBelow() == kCopying, names, found);
    } else if (const Place* const places = matched(names)) {
        std::copy_n(places, names.count, found);
        return;
    } else if (entry().type == TextType::Object) {
        return FindOnTape(entry(), names, found);
    } else if (isWatched()) {
        return watchedMembers(names, found);
    }
    std::fill_n(found, names.count, Place());
}

}  // namespace jsonparser
