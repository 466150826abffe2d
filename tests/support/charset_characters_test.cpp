// Every character there is, in every kind of encoding, both ways, against what iconv says of each by itself.

#include <gtest/gtest.h>
#include <iconv.h>
#include <json/value.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/buffer.h"
#include "testing/locale.h"
#include "vkprotocolstack/support/support.h"

namespace {

using testing_tools::Buffer;
using testing_tools::ThreadLocale;

std::string Utf8(char32_t code) {
    const auto byte = [](char32_t value) { return static_cast<char>(value); };
    const auto tail = [&](unsigned shift) { return byte(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) return {byte(code)};
    if (code < 0x800) return {byte(0xC0 | code >> 6), tail(0)};
    if (code < 0x10000) return {byte(0xE0 | code >> 12), tail(6), tail(0)};
    return {byte(0xF0 | code >> 18), tail(12), tail(6), tail(0)};
}

bool IsScalar(char32_t code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

/// One direction of iconv, for one thing at a time.
class Iconv {
  public:
    Iconv(const char* to, const char* from) : converter_(iconv_open(to, from)) {
        EXPECT_NE(converter_, reinterpret_cast<iconv_t>(-1)) << from << " to " << to;
    }
    ~Iconv() { iconv_close(converter_); }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    /// What text becomes as a whole; nothing when it is refused, error() then says why.
    std::optional<std::string> convert(std::string_view text) {
        char result[64];
        char* to = result;
        std::size_t room = sizeof result;
        char* from = const_cast<char*>(text.data());
        std::size_t left = text.size();
        const bool good = iconv(converter_, &from, &left, &to, &room) != static_cast<std::size_t>(-1) &&
                          iconv(converter_, nullptr, nullptr, &to, &room) != static_cast<std::size_t>(-1);
        error_ = good ? 0 : errno;
        iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        if (!good) return std::nullopt;
        return std::string(result, to);
    }
    int error() const { return error_; }

  private:
    iconv_t converter_;
    int error_ = 0;
};

/// An encoding's characters by the rules, from iconv's UTF-32 instead of its UTF-8.
class Reference {
  public:
    explicit Reference(const char* codeset)
        : toLocal_(codeset, "UTF-32LE"), toUtf32_("UTF-32LE", codeset), toUtf8_("UTF-8", codeset) {}

    /// The local form of a character; nothing when it becomes a question mark.
    std::optional<std::string> form(char32_t code) {
        if (!IsScalar(code) || (code >= 0xE0000 && code <= 0xE007F)) return std::nullopt;
        const std::string utf32(reinterpret_cast<const char*>(&code), sizeof code);
        const auto local = toLocal_.convert(utf32);
        if (!local || local->size() > Utf8(code).size() || toUtf32_.convert(*local) != utf32) return std::nullopt;
        return local;
    }

    /// What local text becomes in UTF-8: where it is not good as a whole, found by trying one byte more at a time.
    std::string utf8(std::string_view local) {
        if (const auto whole = toUtf8_.convert(local)) return *whole;
        std::string result;
        for (std::size_t length = 1; length <= local.size();) {
            if (const auto character = toUtf8_.convert(local.substr(0, length))) {
                result += *character;
                local.remove_prefix(length);
                length = 1;
            } else if (toUtf8_.error() == EINVAL) {
                ++length;
            } else {
                result += '?';
                local.remove_prefix(1);
                length = 1;
            }
        }
        return result;
    }

  private:
    Iconv toLocal_;
    Iconv toUtf32_;
    Iconv toUtf8_;
};

struct Encoding {
    const char* locale;
    const char* codeset;
    unsigned expressible;  ///< characters, U+0000 not counted
};

void PrintTo(const Encoding& encoding, std::ostream* out) { *out << encoding.locale; }

class EveryCharacter : public testing::TestWithParam<Encoding> {
  protected:
    static constexpr char32_t kBlock = 256;

    /// Calls use(utf8, local, expressible characters in UTF-8, the same in local form) for the characters of each
    /// block.
    template <class Use>
    void forEachBlock(char32_t begin, char32_t end, char32_t step, Use use) {
        const std::string questionMark = reference_.form(U'?').value();
        std::string utf8;
        std::string local;
        std::string expressibleUtf8;
        std::string expressibleLocal;
        for (char32_t code = begin; code < end; code += step) {
            const std::string character = Utf8(code);
            const auto form = reference_.form(code);
            utf8 += character;
            for (std::size_t i = 0; !form && i < (IsScalar(code) ? 1 : character.size()); ++i) local += questionMark;
            local += form.value_or("");
            if (form) {
                expressibleUtf8 += character;
                expressibleLocal += *form;
                ++expressible_;
            }
            if (code + step >= end || (code + step) / kBlock != code / kBlock) {
                ASSERT_NO_FATAL_FAILURE(use(utf8, local, expressibleUtf8, expressibleLocal))
                    << static_cast<unsigned>(code);
                for (std::string* text : {&utf8, &local, &expressibleUtf8, &expressibleLocal}) text->clear();
            }
        }
    }

    ThreadLocale locale_{GetParam().locale};
    Reference reference_{GetParam().codeset};
    unsigned expressible_ = 0;
};

void ExpectLocal(const std::string& utf8, const std::string& local) {
    std::string source = utf8;
    Buffer buffer(utf8.size() + 1);
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(source.data()), buffer.get());
    ASSERT_EQ(buffer.text(), local);
}

void ExpectLocalFields(const std::string& utf8, const std::string& local) {
    Buffer field(local.size() + 1);
    ASSERT_TRUE(GetJsonString(utf8, field.get(), static_cast<int>(local.size() + 1), true));
    ASSERT_EQ(field.text(), local);
    Buffer rendered(local.size() + 1);
    parseJsonNodeToStr(utf8, rendered.get(), static_cast<int>(local.size() + 1));
    ASSERT_EQ(rendered.text(), local);
}

void ExpectUtf8(const std::string& local, const std::string& utf8) {
    Buffer buffer(utf8.size() + 1);
    Change_Assic_UTF8(local.data(), static_cast<int>(local.size()), buffer.get(), static_cast<int>(utf8.size() + 1));
    ASSERT_EQ(buffer.text(), utf8);
}

void ExpectUtf8Nodes(const std::string& local, const std::string& utf8) {
    Json::Value node;
    SetJsonString(node, local.c_str(), true);
    ASSERT_EQ(node, Json::Value(utf8));
    packetStrToJsonNode(node, local.data(), static_cast<int>(local.size()));
    ASSERT_EQ(node, Json::Value(utf8));
}

TEST_P(EveryCharacter, BecomesItsLocalFormOrAQuestionMarkAndComesBackUnchanged) {
    forEachBlock(1, 0x110000, 1,
                 [](const auto& utf8, const auto& local, const auto& expressibleUtf8, const auto& expressibleLocal) {
                     ASSERT_NO_FATAL_FAILURE(ExpectLocal(utf8, local));
                     ASSERT_NO_FATAL_FAILURE(ExpectUtf8(expressibleLocal, expressibleUtf8));
                 });
    EXPECT_EQ(expressible_, GetParam().expressible);
}

TEST_P(EveryCharacter, OfTheFirstPlaneDoesSoInFieldsAndNodes) {
    forEachBlock(1, 0x10000, 1,
                 [](const auto& utf8, const auto& local, const auto& expressibleUtf8, const auto& expressibleLocal) {
                     ASSERT_NO_FATAL_FAILURE(ExpectLocalFields(utf8, local));
                     ASSERT_NO_FATAL_FAILURE(ExpectUtf8Nodes(expressibleLocal, expressibleUtf8));
                 });
}

TEST_P(EveryCharacter, NothingAboveTheLastCodePointPasses) {
    for (const char32_t step : {1U, 251U}) {
        forEachBlock(0x110000, step == 1 ? 0x110400 : 0x200000, step,
                     [](const auto& utf8, const auto& local, const auto& expressibleUtf8, const auto&) {
                         ASSERT_NO_FATAL_FAILURE(ExpectLocal(utf8, local));
                         ASSERT_EQ(expressibleUtf8, "");
                     });
    }
}

TEST_P(EveryCharacter, EveryPairOfLocalBytesGivesWholeCharactersAndAQuestionMarkForEachOtherByte) {
    for (unsigned pair = 1; pair < 0x10000; ++pair) {
        std::string local(1, static_cast<char>(pair & 0xFF));
        if (pair >= 0x100) local.insert(local.begin(), static_cast<char>(pair >> 8));
        const std::string text = local.substr(0, local.find('\0'));
        ASSERT_NO_FATAL_FAILURE(ExpectUtf8(text, reference_.utf8(text))) << std::hex << pair;
    }
}

/// Six more in the C library's tables of GB18030-2022.
constexpr unsigned kOfGB18030 = __GLIBC_PREREQ(2, 39) ? 1072515 : 1072509;

INSTANTIATE_TEST_SUITE_P(
    , EveryCharacter,
    testing::Values(Encoding{"zh_CN.GBK", "GBK", 21919}, Encoding{"zh_CN.GB18030", "GB18030", kOfGB18030},
                    Encoding{"ja_JP.EUC-JP", "EUC-JP", 12903}, Encoding{"ja_JP.SHIFT_JIS", "SHIFT_JIS", 7069},
                    Encoding{"zh_HK.BIG5-HKSCS", "BIG5-HKSCS", 18579}, Encoding{"vi_VN.CP1258", "CP1258", 426},
                    Encoding{"de_DE.ISO-8859-1", "ISO-8859-1", 255}, Encoding{"de_DE.ISO-8859-15", "ISO-8859-15", 255}),
    [](const auto& tested) {
        std::string name = tested.param.codeset;
        for (char& letter : name) letter = letter == '-' ? '_' : letter;
        return name;
    });

TEST(EverySequenceOf4Bytes, OfGB18030IsACharacterOfUnicodeOrQuestionMarks) {
    const ThreadLocale locale("zh_CN.GB18030");
    Reference reference("GB18030");
    std::string local;
    for (int first = 0x81; first <= 0xFE; ++first) {
        for (int second = '0'; second <= '9'; ++second) {
            for (int third = 0x81; third <= 0xFE; ++third) {
                local.clear();
                for (int fourth = '0'; fourth <= '9'; ++fourth) {
                    for (const int byte : {first, second, third, fourth}) local += static_cast<char>(byte);
                }
                const std::string utf8 = reference.utf8(local);
                ASSERT_NO_FATAL_FAILURE(ExpectUtf8(local, utf8)) << std::hex << first << second << third;
            }
        }
    }
}

TEST(EverySequenceOf3Bytes, OfEucJpIsACharacterOfUnicodeOrQuestionMarks) {
    const ThreadLocale locale("ja_JP.EUC-JP");
    Reference reference("EUC-JP");
    for (int second = 0x80; second <= 0xFF; ++second) {
        for (int third = 0x80; third <= 0xFF; ++third) {
            std::string local = "\x8F";
            for (const int byte : {second, third}) local += static_cast<char>(byte);
            ASSERT_NO_FATAL_FAILURE(ExpectUtf8(local, reference.utf8(local))) << std::hex << second << third;
        }
    }
}

}  // namespace
