#include "vkprotocolstack/message_text.h"

#include <json/reader.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstring>
#include <exception>
#include <locale>
#include <utility>

#include "vkprotocolstack/wire/copied_text.h"
#include "vkprotocolstack/wire/message_node.h"
#include "vkprotocolstack/wire/text_pass.h"
#include "vkprotocolstack/wire/text_utf8.h"

namespace jsonparser {
namespace {

constexpr std::size_t kNotFollowed = TextPass::kMaxSteps + 1;

/// The number of steps of a pointer; of what is none, or has too many, kNotFollowed.
std::size_t Steps(std::string_view pointer, TextStep (&steps)[TextPass::kMaxSteps]) {
    std::size_t count = 0;
    while (!pointer.empty()) {
        if (pointer.front() != '/' || count == TextPass::kMaxSteps) return kNotFollowed;
        steps[count++] = TakeStep(pointer);
    }
    return count;
}

/// The place of an entry; of none, the missing one.
Place PlaceOf(const TextEntry* entry) { return entry == nullptr ? Place() : Place(entry); }

/// The place to which the pointer, empty or with a slash first, leads from an entry.
Place OnTape(const TextEntry* entry, std::string_view pointer) {
    while (entry != nullptr && !pointer.empty()) {
        const TextStep step = TakeStep(pointer);
        const TextEntry* found = nullptr;
        if (entry->type == TextType::Object) {
            const TextEntry* child = entry->first();
            for (std::size_t left = entry->size; left > 0; --left, child = child->next()) {
                if (IsStepTo(step, child->name, child->nameSize)) found = child;
            }
        } else if (entry->type == TextType::Array && step.index < entry->size) {
            found = entry->element(step.index);
        }
        entry = found;
    }
    return PlaceOf(entry);
}

/// The place to which the pointer leads in a tree. Apart, since it needs a frame that others need not set up.
[[gnu::noinline]] Place InTree(const Json::Value& tree, std::string_view pointer) {
    Place place(&tree);
    while (place.exists() && !pointer.empty()) {
        if (pointer.front() != '/') return {};
        const TextStep step = TakeStep(pointer);
        if (place.type() != Json::objectValue) {
            place = place.element(step.index);
            continue;
        }
        std::string name;
        for (std::size_t i = 0; i < step.size; ++i) {
            const bool isEscape = step.name[i] == '~' && i + 1 < step.size && (step.name[i + 1] | 1) == '1';
            if (!isEscape) {
                name += step.name[i];
            } else {
                name += step.name[++i] == '0' ? '~' : '/';
            }
        }
        place = place.member(name);
    }
    return place;
}

/// Lines as jsoncpp counts them: they end at a line feed, a carriage return, or both.
class Lines {
  public:
    explicit Lines(std::string_view text) : text_(text) {}

    /// The beginning of the line that follows the one that begins here; npos when there is none.
    std::size_t next(std::size_t begin) const {
        const std::size_t end = text_.find_first_of("\r\n", begin);
        if (end == text_.npos) return end;
        return text_.substr(end, 2) == "\r\n" ? end + 2 : end + 1;
    }

  private:
    std::string_view text_;
};

/// Takes a number and what stands before it off the beginning of text.
std::size_t TakeNumber(std::string_view& text, std::string_view before) {
    if (text.substr(0, before.size()) != before) return 0;
    text.remove_prefix(before.size());
    std::size_t number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

std::size_t Depth(const MessageTextOptions& options) {
    return static_cast<std::size_t>(std::clamp(options.maxDepth, 1, static_cast<int>(TextPass::kMaxDepth)));
}

}  // namespace

void MessageReading::RefuseAt(MessageText& text, std::size_t line, std::size_t column, std::string_view what) {
    const Lines lines(text.text_);
    std::size_t begin = 0;
    for (std::size_t i = 1; i < line; ++i) begin = lines.next(begin);
    const std::size_t position = std::min(text.text_.size(), begin + column - 1);
    text.error_ = std::make_unique<MessageTextError>(MessageTextError{position, line, column, std::string(what)});
}

void MessageReading::Refuse(MessageText& text, std::size_t position, std::string_view what) {
    const Lines lines(text.text_);
    std::size_t line = 1;
    std::size_t begin = 0;
    for (std::size_t next = lines.next(0); next <= position; next = lines.next(next)) {
        begin = next;
        ++line;
    }
    text.error_ =
        std::make_unique<MessageTextError>(MessageTextError{position, line, position - begin + 1, std::string(what)});
}

void MessageReading::ReadTree(MessageText& text) {
    text.state_ = MessageText::State::Refused;
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["stackLimit"] = static_cast<unsigned>(Depth(text.options_));
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    const std::string terminated(text.text_);  // the reader looks at the byte behind the text before it sees the end
    auto tree = std::make_unique<Json::Value>();
    std::string errors;
    bool accepted = false;
    try {
        accepted = reader->parse(terminated.data(), terminated.data() + terminated.size(), tree.get(), &errors);
    } catch (const Json::RuntimeError& error) {
        if (std::strstr(error.what(), "stackLimit") == nullptr) throw;
        return Refuse(text, 0, "nested deeper than " + std::to_string(Depth(text.options_)) + " levels");
    }
    if (accepted) {
        text.tree_ = std::move(tree);
        text.state_ = MessageText::State::Accepted;
        return;
    }
    std::string_view rest = errors;
    const std::size_t line = TakeNumber(rest, "* Line ");
    const std::size_t column = TakeNumber(rest, ", Column ");
    rest.remove_prefix(std::min(rest.find_first_not_of("\n "), rest.size()));
    RefuseAt(text, line, column, rest.substr(0, rest.find('\n')));
}

void MessageReading::Read(MessageText& text, std::string_view pointer, const NameIndex* expected) {
    TextStep steps[TextPass::kMaxSteps];
    std::size_t count = Steps(pointer, steps);
    if (count == kNotFollowed || pointer.size() > sizeof text.partPointer_) {
        pointer = "";
        count = 0;
        expected = nullptr;
    }
    TextTape tape(text.entries_, text.capacity_);
    TextPass pass{};
    pass.begin = text.text_.data();
    pass.end = pass.begin + text.text_.size();
    pass.steps = steps;
    pass.stepCount = count;
    pass.expected = expected;
    pass.skipOthers = text.options_.skipOthers;
    pass.maxDepth = Depth(text.options_);
    text.copiesTexts_ = CopiesTexts();
    pass.plainText = text.copiesTexts_ ? TextType::CopiedText : TextType::Text;
    pass.tape = &tape;
    pass.stop = pass.begin;
    const bool passed = text.text_.size() < INT_MAX && RunTextPass(pass);
    // jsoncpp reads reals by the program's C++ locale.
    const bool accepted = passed && !(pass.hasReal && std::locale() != std::locale::classic());
    text.entries_ = std::exchange(tape.entries, nullptr);
    text.capacity_ = tape.capacity;
    text.part_ = pass.part;
    text.partPointerSize_ = pointer.copy(text.partPointer_, sizeof text.partPointer_);
    if (!text.options_.strictOnly) [[likely]] {
        text.state_ = MessageText::State::Accepted;
        if (!accepted) [[unlikely]]
            ReadTree(text);
        return;
    }
    text.state_ = MessageText::State::Refused;
    if (pass.noMemory) return;
    if (!passed) {
        return Refuse(text, static_cast<std::size_t>(pass.stop - pass.begin), "not strictly valid, or out of range");
    }
    if (!accepted) return Refuse(text, 0, "a real, for which the program's C++ locale is not the classic one");
    const std::size_t wellFormed = WellFormedUtf8(text.text_);
    if (wellFormed < text.text_.size()) return Refuse(text, wellFormed, "not UTF-8");
    text.state_ = MessageText::State::Accepted;
}

OfAccepted<Place> MessageReading::PlaceAt(const MessagePlace& place, const NameIndex* expected) {
    MessageText& text = *place.text_;
    const std::string_view pointer = place.pointer_;
    try {
        // The tape says which texts are only copied: in another locale these are others.
        const bool isOutdated =
            text.state_ == MessageText::State::Accepted && text.tree_ == nullptr && text.copiesTexts_ != CopiesTexts();
        if (text.state_ == MessageText::State::Unread || isOutdated) [[likely]]
            Read(text, pointer, expected);
        const bool isObserved = ObserverScope::Current() != nullptr;
        if (text.state_ == MessageText::State::Accepted && isObserved && text.tree_ == nullptr) ReadTree(text);
        if (text.state_ == MessageText::State::Refused) [[unlikely]]
            return {};
        if (text.tree_ == nullptr) [[likely]] {
            std::string_view part(text.partPointer_, text.partPointerSize_);
            if (pointer == part) [[likely]]
                return {PlaceOf(text.part_), true};
            if (!pointer.empty() && pointer.front() != '/') return {Place(), true};
            const bool isBelow = pointer.substr(0, part.size()) == part && pointer[part.size()] == '/';
            if (isBelow) return {OnTape(text.part_, pointer.substr(part.size())), true};
            // Another part: the whole message goes on the tape, so that no number of parts takes longer than this.
            Read(text, "", nullptr);
            if (text.state_ == MessageText::State::Refused) return {};
            if (text.tree_ == nullptr) return {OnTape(text.part_, pointer), true};
        }
        return {InTree(*text.tree_, pointer), true};
    } catch (const std::exception&) {  // no memory, which jsoncpp reports by one of its own
        text.state_ = MessageText::State::Refused;
        return {};
    }
}

bool MessagePlace::exists() const { return MessageReading::PlaceAt(*this, nullptr)->exists(); }

std::size_t MessagePlace::size() const { return MessageReading::PlaceAt(*this, nullptr)->size(); }

MessageText::MessageText(std::string_view text, const MessageTextOptions& options) : text_(text), options_(options) {}

MessageText::~MessageText() { TextTape::Release(entries_, capacity_); }

bool MessageText::accepted() {
    if (state_ == State::Unread) MessageReading::PlaceAt(at(""), nullptr);
    return state_ == State::Accepted;
}

const MessageTextError* MessageText::error() {
    static const MessageTextError noMemory{0, 1, 1, "out of memory"};
    if (accepted()) return nullptr;
    return error_ == nullptr ? &noMemory : error_.get();
}

}  // namespace jsonparser
