// Texts in the encoding of the calling thread's locale.

#include <gtest/gtest.h>
#include <json/value.h>
#include <locale.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "testing/buffer.h"
#include "testing/json.h"
#include "testing/locale.h"
#include "vkprotocolstack/JsonParser.h"

namespace {

using testing_tools::Buffer;
using testing_tools::Holding;
using testing_tools::Json;
using testing_tools::Text;
using testing_tools::ThreadLocale;
using testing_tools::Unterminated;
using testing_tools::Utf8Texts;

/// By Change_Utf8_Assic, into a buffer of the source's size and four bytes that it may not touch.
std::string Local(std::string utf8) {
    Buffer buffer(utf8.size() + 5);
    Change_Utf8_Assic(reinterpret_cast<unsigned char*>(utf8.data()), buffer.get());
    const std::string text = buffer.text();
    EXPECT_EQ(buffer.all(), Holding(text, utf8.size() + 5));
    EXPECT_LE(text.size(), utf8.size());
    return text;
}

std::string Field(const Json::Value& value, std::size_t size, bool convert = true) {
    Buffer buffer(size);
    GetJsonString(value, buffer.get(), static_cast<int>(size), convert);
    return buffer.text();
}

std::string Rendered(const Json::Value& value, std::size_t size) {
    Buffer buffer(size);
    parseJsonNodeToStr(value, buffer.get(), static_cast<int>(size));
    return buffer.text();
}

std::string Utf8(const std::string& local, std::size_t size) {
    Unterminated source(local);
    Buffer buffer(size);
    Change_Assic_UTF8(source.get(), static_cast<int>(local.size()), buffer.get(), static_cast<int>(size));
    return buffer.text();
}

std::string Node(const char* local, bool convert = true) {
    Json::Value value;
    SetJsonString(value, local, convert);
    return value.asString();
}

TEST(LocalEncoding, IsThatOfTheLocale) {
    const struct {
        const char* locale;
        const char* utf8;
        const char* local;
    } rows[] = {
        {"zh_CN.GBK",          "京A·D12345",
         "\xBE\xA9"
         "A\xA1\xA4"
         "D12345"                                                        },
        {"zh_CN.GB18030",      "€路",       "\xA2\xE3\xC2\xB7"        },
        {"zh_CN.GB18030",      "😀",         "\x94\x39\xFC\x36"        },
        {"ja_JP.EUC-JP",       "東京路",    "\xC5\xEC\xB5\xFE\xCF\xA9"},
        {"ja_JP.EUC-JP",       "ｱ丂",       "\x8E\xB1\x8F\xB0\xA1"    },
        {"de_DE.ISO-8859-1",   "Straße ·",   "Stra\xDF\x65 \xB7"       },
        {"de_DE.ISO-8859-15",  "5 €",        "5 \xA4"                  },
        {"vi_VN.CP1258",       "ấ",          "\xE2\xEC"                },
        {"zh_HK.BIG5-HKSCS",   "Ê路",        "\x88\x66\xB8\xF4"        },
        {"de_DE.EBCDIC-AT-DE", "A?",           "\xC1\x6F"                },
        {"de_DE.UTF-8",        "京A·D12345", "京A·D12345"            },
        {"tr_TR.UTF-8",        "İıIi",       "İıIi"                  },
        {"C",                  "京A·D12345", "京A·D12345"            },
    };
    for (const auto& row : rows) {
        const ThreadLocale locale(row.locale);
        EXPECT_EQ(Local(row.utf8), row.local) << row.locale;
        EXPECT_EQ(Field(row.utf8, 64), row.local) << row.locale;
        EXPECT_EQ(Rendered(row.utf8, 64), row.local) << row.locale;
        EXPECT_EQ(Utf8(row.local, 64), row.utf8) << row.locale;
        EXPECT_EQ(Node(row.local), row.utf8) << row.locale;
        Json::Value node;
        packetStrToJsonNode(node, row.local, 64);
        EXPECT_EQ(node, Json::Value(row.utf8)) << row.locale;
    }
}

TEST(LocalEncoding, ThatIconvDoesNotKnowIsCopied) {
    const ThreadLocale locale("fr_FR.NEXTSTEP");
    EXPECT_EQ(Local("é路\xFF"), "é路\xFF");
    EXPECT_EQ(Utf8("\xC9\xFF\xE8", 64), "\xC9\xFF\xE8");
    EXPECT_EQ(Field("é路", 4), "é");
}

TEST(LocalEncoding, IsNotAskedForWithoutTheFlag) {
    const ThreadLocale locale("zh_CN.GBK");
    EXPECT_EQ(Field("中山路", 64, false), "中山路");
    EXPECT_EQ(Field("中山路", 9, false), "中山");
    EXPECT_EQ(Node("中山路", false), "中山路");
    EXPECT_EQ(Node("\xD6\xD0\xC9\xBD", false), "\xD6\xD0\xC9\xBD");
}

TEST(LocalEncoding, AQuestionMarkStandsForACharacterThatItDoesNotHave) {
    const struct {
        const char* locale;
        const char* utf8;
        const char* local;
    } rows[] = {
        {"zh_CN.GBK",          "aøb",                     "a?b"     },
        {"zh_CN.GBK",          "😀",                     "?"       },
        {"de_DE.ISO-8859-1",   "中山路",                "???"     },
        {"de_DE.ISO-8859-1",   "5 €",                    "5 ?"     },
        {"de_DE.EBCDIC-AT-DE", "A路",                     "\xC1\x6F"},
        {"ja_JP.EUC-JP",       "苏A",                     "?A"      },
        {"ja_JP.EUC-JP",       "¥‾",                    "??"      }, // the nearest in iconv's eyes: \ and ~
        {"zh_HK.BIG5-HKSCS",   "\u0304",                   "?"       },
        {"zh_CN.GBK",          "a\U000E0041b",             "a?b"     }, // tags, which iconv leaves out
        {"zh_CN.GBK",          "\U000E0000\U000E007F",     "??"      },
        {"zh_CN.GB18030",      "\U000E0001",               "?"       },
        {"zh_CN.GB18030",      "\xF4\x90\x80\x80",         "????"    }, // U+110000
        {"zh_CN.GB18030",      "\xF7\xBF\xBF\xBF",         "????"    }, // U+1FFFFF
        {"zh_CN.GBK",          "\xED\xA0\x80\xED\xBF\xBF", "??????"  }, // surrogates
    };
    for (const auto& row : rows) {
        const ThreadLocale locale(row.locale);
        EXPECT_EQ(Local(row.utf8), row.local) << row.utf8;
        EXPECT_EQ(Field(row.utf8, 64), row.local) << row.utf8;
        EXPECT_EQ(Rendered(row.utf8, 64), row.local) << row.utf8;
    }
}

TEST(LocalEncoding, AQuestionMarkStandsForACharacterThatWouldBeLonger) {
    {
        const ThreadLocale locale("zh_CN.GB18030");
        EXPECT_EQ(Local("ç"), "?");       // 81 30 8A 34
        EXPECT_EQ(Local("\u0E01"), "?");  // 81 30 D2 38
        EXPECT_EQ(Local("é"), "\xA8\xA6");
    }
    const ThreadLocale locale("ja_JP.EUC-JP");
    EXPECT_EQ(Local("é"), "?");  // 8F AB B1
    EXPECT_EQ(Local("丂"), "\x8F\xB0\xA1");
}

TEST(LocalEncoding, AQuestionMarkStandsForEachByteOfWhatIsNoUtf8) {
    const struct {
        const char* utf8;
        const char* local;
    } rows[] = {
        {"\x80",                 "?"         },
        {"a\xBF\x80z",           "a??z"      },
        {"\xC0\x80",             "??"        }, // overlong
        {"\xC1\xBF",             "??"        },
        {"\xC0",                 "?"         },
        {"\xE0\x9F\xBF",         "???"       },
        {"\xE0\x9F",             "??"        },
        {"\xF0\x8F\xBF\xBF",     "????"      },
        {"\xF0\x8F",             "??"        },
        {"\xF8\x88\x80\x80\x80", "?????"     },
        {"\xFE\xFF",             "??"        },
        {"\xE8z",                "?z"        }, // broken off before another character
        {"\xE8\xB7z",            "??z"       },
        {"\xF0\x9F\x98z",        "???z"      },
        {"\xE8\xB7路",          "??\xC2\xB7"},
        {"\xE8\xE8\xB7\xAF",     "?\xC2\xB7" },
        {"\xC3\xF0\x9F\x98\x80", "??"        },
    };
    const ThreadLocale locale("zh_CN.GBK");
    for (const auto& row : rows) {
        EXPECT_EQ(Local(row.utf8), row.local);
        EXPECT_EQ(Field(row.utf8, 64), row.local);
        EXPECT_EQ(Rendered(row.utf8, 64), row.local);
    }
}

TEST(LocalEncoding, AnIncompleteEndIsDropped) {
    const ThreadLocale locale("zh_CN.GBK");
    for (const std::string end : {"\xC3", "\xE8", "\xE8\xB7", "\xF0", "\xF0\x9F", "\xF0\x9F\x98"}) {
        EXPECT_EQ(Local(end), "");
        EXPECT_EQ(Local("a路" + end), "a\xC2\xB7");
        EXPECT_EQ(Field("路" + end, 64), "\xC2\xB7");
        EXPECT_EQ(Rendered("路" + end, 64), "\xC2\xB7");
    }
    EXPECT_EQ(Utf8("a\xC2\xB7\xC2", 64), "a路");
    EXPECT_EQ(Node("a\xC2\xB7\xC2"), "a路");
    Json::Value node;
    packetStrToJsonNode(node, "\xD6\xD0\xC9\xBD", 3);
    EXPECT_EQ(node, Json::Value("中"));
}

TEST(LocalEncoding, ATextInATreeIsConvertedWithItsTree) {
    const ThreadLocale locale("zh_CN.GBK");
    EXPECT_EQ(Rendered(Json(R"({"路": ["é", "\"", 1.5, null, {}]})"), 64),
              "{\"\xC2\xB7\":[\"\xA8\xA6\",\"\\\"\",1.5,null,{}]}");
    Json::Value tree;
    tree.append("路\xE8\xB7");
    EXPECT_EQ(Rendered(tree, 64), "[\"\xC2\xB7??\"]");
}

TEST(LocalEncoding, ALocalByteThatIsPartOfNoCharacterGivesAQuestionMark) {
    const ThreadLocale locale("zh_CN.GBK");
    const struct {
        const char* local;
        const char* utf8;
    } rows[] = {
        {"\xFF",                 "?"      },
        {"a\x80\x62",            "a€b"  },
        {"\xC2\xB7\xFF\xC2\xB7", "路?路"},
        {"\xFF\xFF\xFF",         "???"    },
        {"\xC2 ",                "? "     }, // 0x20 does not follow
        {"\xC2\xC2\xB7",         "侣?"   }, // C2 C2, then B7, which would begin the next
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Utf8(std::string(row.local) + ".", 64), std::string(row.utf8) + ".");
        EXPECT_EQ(Node((std::string(row.local) + ".").c_str()), std::string(row.utf8) + ".");
    }
}

TEST(LocalEncoding, ALetterWaitsForItsAccent) {
    const ThreadLocale locale("vi_VN.CP1258");
    EXPECT_EQ(Utf8("a\xEC", 64), "á");
    EXPECT_EQ(Utf8("ab", 64), "ab");
    EXPECT_EQ(Utf8("\xEA", 64), "ê");
    EXPECT_EQ(Utf8("\xEA\xEC", 64), "ế");
    EXPECT_EQ(Utf8("\xEA\x8A\xEC", 64), "ê?\u0301");  // 8A is no character
    EXPECT_EQ(Utf8("\xEA\xEA\xEC", 3), "ê");
    EXPECT_EQ(Utf8("\xEA\x8A", 3), "ê");
    EXPECT_EQ(Utf8("\xEA", 2), "");
    EXPECT_EQ(Utf8("\xE0", 8), "à");  // what did not fit does not come later
}

TEST(LocalEncoding, ConversionComesFirstThenTheCut) {
    const ThreadLocale locale("zh_CN.GBK");
    // Characters of 1, 2, 3, 4 and 1 bytes in UTF-8, of 1, 2, 2, 1 and 1 here.
    const Json::Value value = "aé路😀z";
    const std::vector<std::string> expected = {"",
                                               "a",
                                               "a",
                                               "a\xA8\xA6",
                                               "a\xA8\xA6",
                                               "a\xA8\xA6\xC2\xB7",
                                               "a\xA8\xA6\xC2\xB7?",
                                               "a\xA8\xA6\xC2\xB7?z",
                                               "a\xA8\xA6\xC2\xB7?z"};
    for (std::size_t size = 1; size <= expected.size(); ++size) {
        EXPECT_EQ(Field(value, size), expected[size - 1]) << size;
        EXPECT_EQ(Rendered(value, size), expected[size - 1]) << size;
    }
    Json::Value tree;
    tree.append("路路");
    const std::vector<std::string> rendered = {"",
                                               "[",
                                               "[\"",
                                               "[\"",
                                               "[\"\xC2\xB7",
                                               "[\"\xC2\xB7",
                                               "[\"\xC2\xB7\xC2\xB7",
                                               "[\"\xC2\xB7\xC2\xB7\"",
                                               "[\"\xC2\xB7\xC2\xB7\"]",
                                               "[\"\xC2\xB7\xC2\xB7\"]"};
    for (std::size_t size = 1; size <= rendered.size(); ++size)
        EXPECT_EQ(Rendered(tree, size), rendered[size - 1]) << size;
}

TEST(LocalEncoding, NothingFollowsACut) {
    const ThreadLocale locale("zh_CN.GBK");
    Json::Value tree;
    tree["路"]["é"] = "x";
    const std::string whole = "{\"\xC2\xB7\":{\"\xA8\xA6\":\"x\"}}";
    for (std::size_t size = 1; size <= whole.size() + 2; ++size) {
        const bool splits = size == 4 || size == 10;
        EXPECT_EQ(Rendered(tree, size), whole.substr(0, size - 1 - splits)) << size;
    }
}

TEST(LocalEncoding, ACutKeepsWholeCharactersOf4LocalBytes) {
    const ThreadLocale locale("zh_CN.GB18030");
    for (std::size_t size = 1; size <= 11; ++size) {
        const std::string whole = "\x94\x39\xFC\x36\x94\x39\xFC\x36";
        EXPECT_EQ(Field("😀😀", size), whole.substr(0, (size - 1) / 4 * 4)) << size;
        EXPECT_EQ(Rendered("😀😀", size), whole.substr(0, (size - 1) / 4 * 4)) << size;
    }
}

TEST(LocalEncoding, ACutOfUtf8KeepsWholeCharacters) {
    const ThreadLocale locale("zh_CN.GBK");
    const std::vector<std::string> expected = {"",     "a",     "a",      "aé",     "aé",    "aé",
                                               "aé路", "aé路?", "aé路?z", "aé路?z", "aé路?z"};
    for (std::size_t size = 1; size <= expected.size(); ++size) {
        EXPECT_EQ(Utf8("a\xA8\xA6\xC2\xB7\xFFz", size), expected[size - 1]) << size;
    }
}

TEST(LocalEncoding, ATextGrowsAsMuchAsItMust) {
    const ThreadLocale locale("de_DE.ISO-8859-15");
    std::string utf8;
    for (int i = 0; i < 1000; ++i) utf8 += "€";
    EXPECT_EQ(Node(std::string(1000, '\xA4').c_str()), utf8);
    Json::Value node;
    packetStrToJsonNode(node, std::string(1000, '\xA4').c_str(), 1000);
    EXPECT_EQ(node, Json::Value(utf8));
}

TEST(LocalEncoding, AsciiIsItselfWhereverItIsTheSame) {
    std::string ascii;
    for (char byte = 1; byte != '\x7F'; ++byte) ascii += byte;
    for (const char* name : {"zh_CN.GBK", "zh_CN.GB18030", "ja_JP.EUC-JP", "zh_HK.BIG5-HKSCS", "de_DE.ISO-8859-1",
                             "de_DE.ISO-8859-15", "fr_FR.NEXTSTEP", "de_DE.UTF-8", "C"}) {
        const ThreadLocale locale(name);
        EXPECT_EQ(Local(ascii), ascii) << name;
        EXPECT_EQ(Utf8(ascii, 256), ascii) << name;
        for (std::size_t size = 1; size <= ascii.size() + 2; ++size) {
            EXPECT_EQ(Field(ascii, size), ascii.substr(0, size - 1)) << name;
            EXPECT_EQ(Rendered(ascii, size), ascii.substr(0, size - 1)) << name;
            EXPECT_EQ(Utf8(ascii, size), ascii.substr(0, size - 1)) << name;
        }
    }
}

TEST(LocalEncoding, AnAsciiCharacterThatIsAnotherOneLocallyIsNotCopied) {
    const ThreadLocale locale("ja_JP.SHIFT_JIS");
    EXPECT_EQ(Local("a\\~"), "a??");
    EXPECT_EQ(Local("¥‾"), "\\~");
    EXPECT_EQ(Utf8("a\\~", 64), "a¥‾");
}

TEST(LocalEncoding, WhoseNameBeginsLikeThatOfAsciiIsNotTakenForIt) {
    const ThreadLocale locale("hy_AM.ARMSCII-8");
    EXPECT_EQ(Local("Ա"), "\xB2");
    EXPECT_EQ(Utf8("\xB2", 8), "Ա");
}

TEST(LocalEncoding, MayChangeBetweenCalls) {
    const Utf8Texts utf8;
    for (int i = 0; i < 3; ++i) {
        {
            const ThreadLocale locale("zh_CN.GBK");
            EXPECT_EQ(Local("中"), "\xD6\xD0");
            {
                const ThreadLocale inner("ja_JP.EUC-JP");
                EXPECT_EQ(Local("中"), "\xC3\xE6");
                EXPECT_EQ(Utf8("\xC3\xE6", 8), "中");
            }
            EXPECT_EQ(Local("中"), "\xD6\xD0");
            EXPECT_EQ(Utf8("\xD6\xD0", 8), "中");
        }
        EXPECT_EQ(Local("中"), "中");
    }
}

TEST(LocalEncoding, FollowsTheProcessLocale) {
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    const std::string before = Local("é");
    for (const bool gbk : {true, false, true}) {
        ASSERT_NE(std::setlocale(LC_CTYPE, gbk ? "zh_CN.GBK" : "de_DE.ISO-8859-1"), nullptr);
        EXPECT_EQ(Local("é"), gbk ? "\xA8\xA6" : "\xE9");
        EXPECT_EQ(Utf8(gbk ? "\xA8\xA6" : "\xE9", 8), "é");
    }
    std::setlocale(LC_ALL, previous.c_str());
    EXPECT_EQ(Local("é"), before);
}

TEST(LocalEncoding, OfManyThreadsIsEachOnesOwn) {
    const struct {
        const char* locale;
        std::string utf8;
        std::string local;
    } rows[] = {
        {"zh_CN.GBK",         "中山路é",   "\xD6\xD0\xC9\xBD\xC2\xB7\xA8\xA6"},
        {"ja_JP.EUC-JP",      "中山路?",    "\xC3\xE6\xBB\xB3\xCF\xA9?"       },
        {"de_DE.ISO-8859-15", "Größe 5 €",
         "Gr\xF6\xDF"
         "e 5 \xA4"                                                              },
        {"zh_CN.GB18030",     "😀路",       "\x94\x39\xFC\x36\xC2\xB7"        },
        {"de_DE.UTF-8",       "中山路é",   "中山路é"                     },
        {"de_DE.ISO-8859-1",  "é",            "\xE9"                            },
        {"zh_HK.BIG5-HKSCS",  "Ê路",         "\x88\x66\xB8\xF4"                },
    };
    std::vector<locale_t> locales;
    for (const auto& row : rows) locales.push_back(testing_tools::MakeLocale(row.locale));
    std::vector<std::thread> threads;
    std::vector<int> wrong(8);
    for (std::size_t thread = 0; thread < wrong.size(); ++thread) {
        threads.emplace_back([&rows, &locales, &count = wrong[thread], thread] {
            for (std::size_t round = 0; round < 500; ++round) {
                const std::size_t which = (thread + round) % locales.size();
                const auto& row = rows[which];
                uselocale(locales[which]);
                for (int i = 0; i < 4; ++i) {
                    if (Local(row.utf8) != row.local || Field(row.utf8, 64) != row.local) ++count;
                    if (Rendered(row.utf8, 64) != row.local) ++count;
                    if (Utf8(row.local, 64) != row.utf8 || Node(row.local.c_str()) != row.utf8) ++count;
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const locale_t locale : locales) freelocale(locale);
    EXPECT_EQ(wrong, std::vector<int>(8));
}

/// Converts when it is destroyed.
struct Late {
    ~Late() { std::fprintf(stderr, "%s\n", Local("中") == "\xD6\xD0" ? "converted late" : "not converted"); }
};

TEST(LocalEncodingDeathTest, IsThereForWhatIsDestroyedWhenTheProcessEnds) {
    const auto convertAndEnd = [] {
        static const Late late;
        std::setlocale(LC_CTYPE, "zh_CN.GBK");
        std::exit(Local("中") == "\xD6\xD0" ? 0 : 1);
    };
    EXPECT_EXIT(convertAndEnd(), testing::ExitedWithCode(0), "converted late");
}

TEST(LocalEncoding, HoldsThePlateAndTheRoadsOfATrafficEvent) {
    const ThreadLocale locale("zh_CN.GBK");
    Json::Value node = Json(R"({"PlateNumber": "京A·D12345", "PlateColor": "蓝", "VehicleSize": "Medium",
                                "ViolationName": "超速行驶", "DrivingDirection": ["Approach", "中山路", "人民路"],
                                "CustomParkNo": "车位7", "MachineName": "😀", "DefendCode": "路",
                                "RoadwayNo": "路路路路路路路路路路路路路路路路路路路路路路",
                                "DeviceAddress": "中山路与解放路交叉口"})");
    jsonparser::Owned<tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO> car;
    ASSERT_EQ(ParseStrtoTrafficCar(node, car.get()), 0);
    EXPECT_STREQ(car->szPlateNumber,
                 "\xBE\xA9"
                 "A\xA1\xA4"
                 "D12345");
    EXPECT_STREQ(car->szPlateColor, "\xC0\xB6");
    EXPECT_STREQ(car->szViolationName, "\xB3\xAC\xCB\xD9\xD0\xD0\xCA\xBB");
    EXPECT_STREQ(car->szDrivingDirection[1], "\xD6\xD0\xC9\xBD\xC2\xB7");
    EXPECT_STREQ(car->szDrivingDirection[2], "\xC8\xCB\xC3\xF1\xC2\xB7");
    EXPECT_STREQ(car->szCustomParkNo,
                 "\xB3\xB5\xCE\xBB"
                 "7");
    EXPECT_STREQ(car->szMachineName, "?");
    EXPECT_STREQ(car->szDefendCode, "\xC2\xB7");
    EXPECT_STREQ(car->pszDeviceAddress,
                 "\xD6\xD0\xC9\xBD\xC2\xB7\xD3\xEB\xBD\xE2\xB7\xC5\xC2\xB7\xBD\xBB\xB2\xE6\xBF\xDA");
    // 64 of 66 bytes of UTF-8 are taken: 21 characters and one byte of the next.
    EXPECT_EQ(std::strlen(car->szRoadwayNo), 42U);
    EXPECT_STREQ(car->szDrivingDirection[0], "Approach");
    EXPECT_EQ(car->nVehicleSize, 2);
}

TEST(LocalEncoding, IsWhatPacketAssicToUtf8JasonReads) {
    const ThreadLocale locale("zh_CN.GBK");
    char text[] =
        "\xBB\xA6"
        "ADG9017";
    Json::Value node;
    packetAssicToUtf8Jason(node, text, sizeof text);
    EXPECT_EQ(Text(node), R"("沪ADG9017")");
}

}  // namespace
