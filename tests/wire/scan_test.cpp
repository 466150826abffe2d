#include "vkprotocolstack/wire/scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using jsonparser::NumberFormat;
using jsonparser::Scan;
using jsonparser::ScanInto;
using jsonparser::Signs;
using namespace std::string_literals;
using namespace std::string_view_literals;

/// The formats of the device protocol's texts, and some more.
constexpr std::tuple kFormats{
    NumberFormat<6>("%04d-%02d-%02d %02d:%02d:%02d"),
    NumberFormat<7>("%04d-%02d-%02d %02d:%02d:%02d.%d"),
    NumberFormat<6>("%04d%02d%02d %02d%02d%02d"),
    NumberFormat<3>("%02d:%02d:%02d"),
    NumberFormat<3>("%04u-%02u-%02u"),
    NumberFormat<3>("%04d-%02d-%02d"),
    NumberFormat<7>("%d %02d:%02d:%02d-%02d:%02d:%02d"),
    NumberFormat<7>("%d %d:%d:%d-%d:%d:%d"),
    NumberFormat<3>("%d:%u:%d"),
    NumberFormat<4>("%u:%02d:%d:%02u"),
    NumberFormat<4>("x%02d:%02d:%02d:%02d"),
    NumberFormat<4>("%d:%d:%d%d"),
    NumberFormat<6>("%d:%d:%d%d:%d:%d"),
    NumberFormat<6>("%02d:%02d:%02d%02d:%02d:%02d"),
    NumberFormat<6>("%d:%d:%d-%d-%d-%d"),
    NumberFormat<1>("%d"),
    NumberFormat<1>("%u"),
    NumberFormat<1>(" %d"),
    NumberFormat<2>("%03u,%05d"),
};

/// Calls use with each format.
template <class Use>
void ForFormats(Use use) {
    std::apply([&](const auto&... format) { (use(format), ...); }, kFormats);
}

constexpr int kUntouched = 0x5A5A5A5A;

/// Numbers stored, and the seven places that they may be stored in.
struct Scanned {
    std::size_t count;
    std::array<int, 7> values;

    friend bool operator==(const Scanned&, const Scanned&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Scanned& scanned) {
        out << scanned.count << ':';
        for (const int value : scanned.values) out << ' ' << value;
        return out;
    }
};

/// Both scans, which agree.
template <std::size_t N>
Scanned ByScan(std::string_view text, const NumberFormat<N>& format, Signs signs = Signs::Allowed) {
    Scanned scanned{0, {}};
    scanned.values.fill(kUntouched);
    scanned.count = Scan(text, format.steps(), signs, scanned.values.data());
    Scanned into{0, {}};
    into.values.fill(kUntouched);
    [&]<std::size_t... I>(std::index_sequence<I...>) { into.count = ScanInto(text, format, signs, into.values[I]...); }
    (std::make_index_sequence<N>());
    EXPECT_EQ(into, scanned) << '"' << text << "\" by " << format.text();
    return scanned;
}

/// sscanf, with its "no text left" counted as no number.
template <std::size_t N>
Scanned BySscanf(const std::string& text, const NumberFormat<N>& numbers) {
    const char* const format = numbers.text().data();
    Scanned scanned{0, {}};
    auto& v = scanned.values;
    v.fill(kUntouched);
    const int count = std::sscanf(text.c_str(), format, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6]);
    scanned.count = count < 0 ? 0 : static_cast<std::size_t>(count);
    return scanned;
}

TEST(Scan, ReadsBordersAsSscanfDoes) {
    const std::string texts[] = {
        "",
        " ",
        "\t\n\v\f\r ",
        "-",
        "+",
        "--1",
        "+-1",
        "- 1",
        "0",
        "-0",
        "+0",
        "00000",
        "1",
        "-1",
        "+1",
        " 1",
        "\n\t -1",
        "1 ",
        "x",
        "1x",
        "x1",
        "0x10",
        "1e5",
        "1.5",
        ".5",
        "%d",
        "１２",
        "\xA0"
        "1",
        "\x1F"
        "1",
        // int and long, and one beyond
        "2147483647",
        "2147483648",
        "-2147483648",
        "-2147483649",
        "4294967295",
        "4294967296",
        "4294967297",
        "-4294967295",
        "-4294967296",
        "9223372036854775806",
        "9223372036854775807",
        "9223372036854775808",
        "-9223372036854775807",
        "-9223372036854775808",
        "-9223372036854775809",
        "18446744073709551614",
        "18446744073709551615",
        "18446744073709551616",
        "-18446744073709551615",
        "-18446744073709551616",
        "99999999999999999999999999",
        "-99999999999999999999999999",
        "+99999999999999999999999999",
        "00000000000000000000000000000000000000007",
        // whole texts
        "2024-01-05 09:30:00",
        "2024-01-05 09:30:00.250",
        "2024-01-05 09:30:00.",
        "2024-01-05T09:30:00",
        "2024-01-05",
        "2024-1-5 9:3:0",
        "2024- 1- 5  9: 3: 0",
        "2024 -01-05",
        "2024-01-05\t\n09:30:00",
        "2024-01-0509:30:00",
        "2024-01-05 09:30:00 ",
        "2024-01-05 09:30:00Z",
        "20240105 093000",
        "20240105093000",
        "2024010509 3000",
        "12024-01-05",
        "-024-01-05",
        "-2024-01-05",
        "2024--1-05",
        "2024-+1-05",
        "2024-001-05",
        "2024-01-",
        "2024-01",
        "2024-",
        "2024",
        "1-2-3 4:5:6",
        "1-2-3 4:5:6.99999999999",
        "1-2-3 4:5:6.-7",
        "1-2-3 4:5:6. 7",
        "1-2-3 4:5:6 .7",
        "09:30:00",
        "9:3:0",
        "-9:-3:-1",
        "009:30:00",
        "09:3",
        "09 :30",
        "09: 30:00",
        "1 00:00:00-23:59:59",
        "0 1:2:3-4:5:6",
        "6 00:00:00 - 24:00:00",
        "-1 00:00:00-24:00:00",
        "100:00:00-24:00:00",
        "1 00:00:00--1:59:59",
        "1 0:0:0-99999999999:0:0",
        "1 -0:+0:00-24:00:00",
        "1",
        "1 ",
        "1 x",
        "1 00:00",
        "a 00:00:00",
        "123,-1234567",
        "1234,5",
        "12 ,5",
        "12, 5",
    };
    for (const std::string& text : texts) {
        ForFormats([&](const auto& format) {
            EXPECT_EQ(ByScan(text, format), BySscanf(text, format)) << '"' << text << "\" by " << format.text();
        });
    }
}

/// These numbers stored, and the places behind them untouched.
Scanned Stored(const std::vector<int>& numbers) {
    Scanned scanned{numbers.size(), {}};
    scanned.values.fill(kUntouched);
    std::copy(numbers.begin(), numbers.end(), scanned.values.begin());
    return scanned;
}

TEST(Scan, StoresTheNumbersInOrder) {
    EXPECT_EQ(ByScan("2024-01-05 09:30:07.250", NumberFormat<7>("%04d-%02d-%02d %02d:%02d:%02d.%d")),
              Stored({2024, 1, 5, 9, 30, 7, 250}));
    EXPECT_EQ(ByScan("-1 2:3:4-5:6:7", NumberFormat<7>("%d %d:%d:%d-%d:%d:%d")), Stored({-1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(ByScan("1 23:45:56-78:90:12", NumberFormat<7>("%d %d:%d:%d-%d:%d:%d")),
              Stored({1, 23, 45, 56, 78, 90, 12}));
    EXPECT_EQ(ByScan("1234567", NumberFormat<7>("%01d%01d%01d%01d%01d%01d%01d")), Stored({1, 2, 3, 4, 5, 6, 7}));
}

TEST(Scan, ANumberBeyondTheRangeKeepsTheLowBitsOfTheLimitOf64Bits) {
    EXPECT_EQ(ByScan("4294967297 9223372036854775808 -9223372036854775809", NumberFormat<3>("%d%d%d")),
              Stored({1, -1, 0}));
    EXPECT_EQ(ByScan("4294967297 18446744073709551616 -18446744073709551617 -1", NumberFormat<4>("%u%u%u%u")),
              Stored({1, -1, -1, -1}));
}

TEST(Scan, LeavesWhatDoesNotConvertAsItWas) {
    EXPECT_EQ(ByScan("12:34:", NumberFormat<3>("%02d:%02d:%02d")), Stored({12, 34}));
}

TEST(Scan, EndsAtTheFirstNul) {
    constexpr NumberFormat<2> kPair("%d:%d");
    constexpr NumberFormat<3> kTime("%d:%d:%d");
    EXPECT_EQ(ByScan("12:3\0004:5"sv, kTime), ByScan("12:3", kTime));
    EXPECT_EQ(ByScan("12:34:56\0007"sv, kTime), Stored({12, 34, 56}));
    EXPECT_EQ(ByScan("12:34:5\0"sv, kTime), Stored({12, 34, 5}));
    EXPECT_EQ(ByScan("1\0:34:56"sv, kTime), Stored({1}));
    EXPECT_EQ(ByScan("\0001"sv, kPair).count, 0U);
    EXPECT_EQ(ByScan({}, kPair).count, 0U);
}

TEST(Scan, ReadsNoFurtherThanTheText) {
    for (const std::string text :
         {"1 12:34:56-01:23:45", "12:34:5601:23:45", "12:34:56789", "2024-01-05 08:30:00.250", "x08:30:00:15"}) {
        for (std::size_t length = 0; length <= text.size(); ++length) {
            const std::vector<char> bytes(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
            ForFormats([&](const auto& format) {
                EXPECT_EQ(ByScan({bytes.data(), length}, format), BySscanf(text.substr(0, length), format))
                    << length << " of " << text << " by " << format.text();
            });
        }
    }
}

TEST(Scan, ReadsATimeWithAnyByteChangedAsSscanfDoes) {
    const std::string text = "1 12:34:56-09:00:99";
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = text;
            changed[place] = static_cast<char>(byte);
            ForFormats([&](const auto& format) {
                ASSERT_EQ(ByScan(changed, format), BySscanf(changed, format)) << changed << " by " << format.text();
                const std::string tail = changed.substr(2);
                ASSERT_EQ(ByScan(tail, format), BySscanf(tail, format)) << tail << " by " << format.text();
            });
        }
    }
}

/// Texts of digits, signs, blanks and separators, and texts made by a format with some of their bytes changed.
class RandomTexts {
  public:
    std::string next(std::string_view format) {
        switch (below(4)) {
            case 0:
                return noise();
            case 1:
                return shaped(format, [] { return 1U; });
            case 2:
                return shaped(format, [] { return 2U; });
            default:
                return shaped(format, [this] { return below(20) == 0 ? 15 + below(10) : 1 + below(4); });
        }
    }

  private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_()) % limit; }

    char byte() {
        static constexpr std::string_view kBytes = "0012345678999-+-+::.. ,\t\n\v\f\rx";
        return kBytes[below(kBytes.size())];
    }

    std::string noise() {
        std::string text;
        for (auto length = below(32); length > 0; --length) text += byte();
        return text;
    }

    template <class Digits>
    std::string shaped(std::string_view format, Digits digitsOf) {
        std::string text;
        for (std::size_t i = 0; i < format.size(); ++i) {
            if (format[i] != '%') {
                text += format[i];
                continue;
            }
            i = format.find_first_of("du", i);
            const auto digits = digitsOf();
            if (below(20) == 0) text += below(2) == 0 ? '-' : '+';
            for (unsigned digit = 0; digit < digits; ++digit) text += static_cast<char>('0' + below(10));
        }
        for (auto changes = below(3); changes > 0; --changes) {
            const auto place = below(static_cast<unsigned>(text.size()) + 1);
            const auto kind = below(4);
            if (kind == 0) {
                text.resize(place);
            } else if (kind == 1) {
                text.erase(place, 1);
            } else {
                text.insert(place, 1, byte());
            }
        }
        return text;
    }

    std::mt19937 random_{20240105};  // NOLINT(cert-msc51-cpp): repeatable on purpose
};

TEST(Scan, ReadsRandomTextsAsSscanfDoes) {
    RandomTexts texts;
    std::array<std::size_t, 8> byCount{};
    for (int round = 0; round < 25000; ++round) {
        ForFormats([&](const auto& format) {
            const std::string text = texts.next(format.text());
            const Scanned scanned = ByScan(text, format);
            ASSERT_EQ(scanned, BySscanf(text, format)) << '"' << text << "\" by " << format.text();
            ++byCount[scanned.count];
        });
    }
    for (const std::size_t times : byCount) EXPECT_GT(times, 1000U);
}

TEST(Scan, TakesDigitsOnlyWhereSignsAreRefused) {
    constexpr NumberFormat<6> kCompact("%04d%02d%02d %02d%02d%02d");
    EXPECT_EQ(ByScan("20240105 093007", kCompact, Signs::Refused), Stored({2024, 1, 5, 9, 30, 7}));
    EXPECT_EQ(ByScan("2024-01-05 09:30:00", kCompact, Signs::Refused), Stored({2024}));
    EXPECT_EQ(ByScan("2024+1", kCompact, Signs::Refused), Stored({2024}));
    EXPECT_EQ(ByScan(" 2024 1 5", kCompact, Signs::Refused), Stored({2024, 1, 5}));
    constexpr NumberFormat<1> kOne("%d");
    EXPECT_EQ(ByScan("-1", kOne, Signs::Refused), Stored({}));
    EXPECT_EQ(ByScan("2147483647", kOne, Signs::Refused), Stored({2147483647}));
    EXPECT_EQ(ByScan("4294967295", kOne, Signs::Refused), Stored({-1}));
    EXPECT_EQ(ByScan("99999999999999999999", kOne, Signs::Refused), Stored({-1}));
    EXPECT_EQ(ByScan(" +1", NumberFormat<1>("%u"), Signs::Refused), Stored({}));
}

TEST(Scan, ASignOutsideANumberIsALiteralWhereSignsAreRefused) {
    EXPECT_EQ(ByScan("2024-01-05", NumberFormat<3>("%04d-%02d-%02d"), Signs::Refused).count, 3U);
}

TEST(Scan, AgreesWithTheScanOfDigitsByHandWhereSignsAreRefused) {
    RandomTexts texts;
    constexpr NumberFormat<6> kCompact("%04d%02d%02d %02d%02d%02d");
    std::size_t whole = 0;
    for (int round = 0; round < 50000; ++round) {
        const std::string text = texts.next(kCompact.text());
        const Scanned scanned = ByScan(text, kCompact, Signs::Refused);
        // Up to its first sign a text is scanned as by sscanf.
        const std::string unsignedText = text.substr(0, text.find_first_of("+-"));
        ASSERT_EQ(scanned, BySscanf(unsignedText, kCompact)) << text;
        if (scanned.count == 6) ++whole;
    }
    EXPECT_GT(whole, 1000U);
}

TEST(ScanInto, StoresWhatConvertedInWordsOfAnyTypeAndLeavesTheRest) {
    int whole = 1;
    unsigned unsignedWord = 2;
    unsigned char byte = 3;
    short half = 4;
    long wide = 5;
    EXPECT_EQ(ScanInto("-1,-1,257,65537,-9,x", "%d,%d,%d,%d,%d", Signs::Allowed, whole, unsignedWord, byte, half, wide),
              5U);
    EXPECT_EQ(whole, -1);
    EXPECT_EQ(unsignedWord, 4294967295U);
    EXPECT_EQ(byte, 1);
    EXPECT_EQ(half, 1);
    EXPECT_EQ(wide, -9);
    EXPECT_EQ(ScanInto("7,x", "%d,%d,%d", Signs::Allowed, whole, unsignedWord, byte), 1U);
    EXPECT_EQ(whole, 7);
    EXPECT_EQ(unsignedWord, 4294967295U);
    EXPECT_EQ(byte, 1);
    EXPECT_EQ(ScanInto("", "%d", Signs::Allowed, whole), 0U);
    EXPECT_EQ(whole, 7);
}

}  // namespace
