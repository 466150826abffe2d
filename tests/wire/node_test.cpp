#include "vkprotocolstack/wire/node.h"

#include <gtest/gtest.h>
#include <json/value.h>
#include <json/writer.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "testing/buffer.h"
#include "testing/json.h"
#include "testing/locale.h"

namespace {

using jsonparser::Keyword;
using jsonparser::Keywords;
using jsonparser::Node;
using jsonparser::Signs;
using testing_tools::Buffer;
using testing_tools::Holding;
using testing_tools::HostileValues;
using testing_tools::Json;
using testing_tools::Utf8Texts;
using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr int kMax32 = 2147483647;
constexpr int kMin32 = -2147483647 - 1;
constexpr unsigned kMaxU32 = 4294967295U;
constexpr long long kMax64 = 9223372036854775807;
constexpr long long kMin64 = -9223372036854775807 - 1;
constexpr unsigned long long kMaxU64 = 18446744073709551615U;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr float kInfinityF = std::numeric_limits<float>::infinity();
constexpr float kNanF = std::numeric_limits<float>::quiet_NaN();

Json::Value Int(Json::Int64 value) { return value; }
Json::Value UInt(Json::UInt64 value) { return value; }
Json::Value Real(double value) { return value; }

const Node kMissing{jsonparser::Place()};

/// Equal, zeros of the same sign, or both NaN.
template <class Number>
bool Same(Number a, Number b) {
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

// ---- numbers

TEST(Node, ReadsNumbersAtEveryBorder) {
    const struct {
        Json::Value value;
        int asInt;
        unsigned asUInt;
        bool asBool;
        double asDouble;
        float asFloat;
    } rows[] = {
        {Int(0),                       0,          0,          false, 0.0,                    0.0F            },
        {Int(1),                       1,          1,          true,  1.0,                    1.0F            },
        {Int(-1),                      -1,         kMaxU32,    true,  -1.0,                   -1.0F           },
        {Int(127),                     127,        127,        true,  127.0,                  127.0F          },
        {Int(128),                     128,        128,        true,  128.0,                  128.0F          },
        {Int(-128),                    -128,       4294967168, true,  -128.0,                 -128.0F         },
        {Int(-129),                    -129,       4294967167, true,  -129.0,                 -129.0F         },
        {Int(255),                     255,        255,        true,  255.0,                  255.0F          },
        {Int(256),                     256,        256,        true,  256.0,                  256.0F          },
        {Int(-255),                    -255,       4294967041, true,  -255.0,                 -255.0F         },
        {Int(-256),                    -256,       4294967040, true,  -256.0,                 -256.0F         },
        {Int(-257),                    -257,       4294967039, true,  -257.0,                 -257.0F         },
        {Int(32767),                   32767,      32767,      true,  32767.0,                32767.0F        },
        {Int(32768),                   32768,      32768,      true,  32768.0,                32768.0F        },
        {Int(-32768),                  -32768,     4294934528, true,  -32768.0,               -32768.0F       },
        {Int(-32769),                  -32769,     4294934527, true,  -32769.0,               -32769.0F       },
        {Int(65535),                   65535,      65535,      true,  65535.0,                65535.0F        },
        {Int(65536),                   65536,      65536,      true,  65536.0,                65536.0F        },
        {Int(-65536),                  -65536,     4294901760, true,  -65536.0,               -65536.0F       },
        {Int(-65537),                  -65537,     4294901759, true,  -65537.0,               -65537.0F       },
        {Int(2147483646),              2147483646, 2147483646, true,  2147483646.0,           2.14748365e+09F },
        {Int(2147483647),              kMax32,     2147483647, true,  2147483647.0,           2.14748365e+09F },
        {Int(-2147483648),             kMin32,     2147483648, true,  -2147483648.0,          -2.14748365e+09F},
        {Int(2147483648),              kMin32,     2147483648, true,  2147483648.0,           2.14748365e+09F },
        {Int(-2147483649),             kMax32,     2147483647, true,  -2147483649.0,          -2.14748365e+09F},
        {Int(4294967295),              -1,         kMaxU32,    true,  4294967295.0,           4.2949673e+09F  },
        {Int(4294967296),              0,          0,          true,  4294967296.0,           4.2949673e+09F  },
        {Int(4294967297),              1,          1,          true,  4294967297.0,           4.2949673e+09F  },
        {Int(-4294967295),             1,          1,          true,  -4294967295.0,          -4.2949673e+09F },
        {Int(-4294967296),             0,          0,          true,  -4294967296.0,          -4.2949673e+09F },
        {Int(4026990592),              -267976704, 4026990592, true,  4026990592.0,           4.02699059e+09F },
        {Int(9007199254740993),        1,          1,          true,  9007199254740992.0,     9.00719925e+15F },
        {Int(1152921573326323713),     1,          1,          true,  1.1529215733263237e+18, 1.1529215e+18F  },
        {Int(kMax64),                  -1,         kMaxU32,    true,  9.223372036854776e+18,  9.22337204e+18F },
        {Int(kMin64),                  0,          0,          true,  -9.223372036854776e+18, -9.22337204e+18F},
        {Int(-9223372036854775807),    1,          1,          true,  -9.223372036854776e+18, -9.22337204e+18F},
        {UInt(0),                      0,          0,          false, 0.0,                    0.0F            },
        {UInt(255),                    255,        255,        true,  255.0,                  255.0F          },
        {UInt(2147483647),             kMax32,     2147483647, true,  2147483647.0,           2.14748365e+09F },
        {UInt(2147483648),             kMin32,     2147483648, true,  2147483648.0,           2.14748365e+09F },
        {UInt(4294967295),             -1,         kMaxU32,    true,  4294967295.0,           4.2949673e+09F  },
        {UInt(4294967296),             0,          0,          true,  4294967296.0,           4.2949673e+09F  },
        {UInt(9223372036854775807),    -1,         kMaxU32,    true,  9.223372036854776e+18,  9.22337204e+18F },
        {UInt(9223372036854775808U),   0,          0,          true,  9.223372036854776e+18,  9.22337204e+18F },
        {UInt(9223372036854775809U),   1,          1,          true,  9.223372036854776e+18,  9.22337204e+18F },
        {UInt(kMaxU64),                -1,         kMaxU32,    true,  1.8446744073709552e+19, 1.84467441e+19F },
        {Real(0.0),                    0,          0,          false, 0.0,                    0.0F            },
        {Real(-0.0),                   0,          0,          false, -0.0,                   -0.0F           },
        {Real(0.5),                    0,          0,          true,  0.5,                    0.5F            },
        {Real(-0.5),                   0,          0,          true,  -0.5,                   -0.5F           },
        {Real(0.9999999),              0,          0,          true,  0.9999999,              0.999999881F    },
        {Real(-0.9999999),             0,          0,          true,  -0.9999999,             -0.999999881F   },
        {Real(1.0),                    1,          1,          true,  1.0,                    1.0F            },
        {Real(-1.0),                   -1,         0,          true,  -1.0,                   -1.0F           },
        {Real(-2.9),                   -2,         0,          true,  -2.9,                   -2.9000001F     },
        {Real(2.9),                    2,          2,          true,  2.9,                    2.9000001F      },
        {Real(126.9),                  126,        126,        true,  126.9,                  126.900002F     },
        {Real(127.5),                  127,        127,        true,  127.5,                  127.5F          },
        {Real(255.0),                  255,        255,        true,  255.0,                  255.0F          },
        {Real(255.9),                  255,        255,        true,  255.9,                  255.899994F     },
        {Real(256.0),                  256,        256,        true,  256.0,                  256.0F          },
        {Real(-256.0),                 -256,       0,          true,  -256.0,                 -256.0F         },
        {Real(32767.5),                32767,      32767,      true,  32767.5,                32767.5F        },
        {Real(65535.9),                65535,      65535,      true,  65535.9,                65535.8984F     },
        {Real(65536.0),                65536,      65536,      true,  65536.0,                65536.0F        },
        {Real(2147483646.5),           2147483646, 2147483646, true,  2147483646.5,           2.14748365e+09F },
        {Real(2147483647.0),           kMax32,     2147483647, true,  2147483647.0,           2.14748365e+09F },
        {Real(2147483647.5),           kMax32,     2147483647, true,  2147483647.5,           2.14748365e+09F },
        {Real(2147483648.0),           kMax32,     2147483648, true,  2147483648.0,           2.14748365e+09F },
        {Real(-2147483648.0),          kMin32,     0,          true,  -2147483648.0,          -2.14748365e+09F},
        {Real(-2147483648.5),          kMin32,     0,          true,  -2147483648.5,          -2.14748365e+09F},
        {Real(-2147483649.0),          kMin32,     0,          true,  -2147483649.0,          -2.14748365e+09F},
        {Real(4294967295.0),           kMax32,     kMaxU32,    true,  4294967295.0,           4.2949673e+09F  },
        {Real(4294967295.5),           kMax32,     kMaxU32,    true,  4294967295.5,           4.2949673e+09F  },
        {Real(4294967296.0),           kMax32,     kMaxU32,    true,  4294967296.0,           4.2949673e+09F  },
        {Real(-4294967296.0),          kMin32,     0,          true,  -4294967296.0,          -4.2949673e+09F },
        {Real(16777217.0),             16777217,   16777217,   true,  16777217.0,             16777216.0F     },
        {Real(0.1),                    0,          0,          true,  0.1,                    0.100000001F    },
        {Real(9007199254740993.0),     kMax32,     kMaxU32,    true,  9007199254740992.0,     9.00719925e+15F },
        {Real(9.2e18),                 kMax32,     kMaxU32,    true,  9.2e+18,                9.20000027e+18F },
        {Real(9223372036854774784.0),  kMax32,     kMaxU32,    true,  9.223372036854775e+18,  9.22337204e+18F },
        {Real(9223372036854775808.0),  kMax32,     kMaxU32,    true,  9.223372036854776e+18,  9.22337204e+18F },
        {Real(-9223372036854775808.0), kMin32,     0,          true,  -9.223372036854776e+18, -9.22337204e+18F},
        {Real(-9223372036854774784.0), kMin32,     0,          true,  -9.223372036854775e+18, -9.22337204e+18F},
        {Real(9.3e18),                 kMax32,     kMaxU32,    true,  9.3e+18,                9.3000003e+18F  },
        {Real(-9.3e18),                kMin32,     0,          true,  -9.3e+18,               -9.3000003e+18F },
        {Real(18446744073709549568.0), kMax32,     kMaxU32,    true,  1.844674407370955e+19,  1.84467441e+19F },
        {Real(18446744073709551616.0), kMax32,     kMaxU32,    true,  1.8446744073709552e+19, 1.84467441e+19F },
        {Real(1e-310),                 0,          0,          true,  1e-310,                 0.0F            },
        {Real(3.4028235677973366e38),  kMax32,     kMaxU32,    true,  3.4028235677973366e+38, kInfinityF      },
        {Real(1e39),                   kMax32,     kMaxU32,    true,  1e+39,                  kInfinityF      },
        {Real(-1e39),                  kMin32,     0,          true,  -1e+39,                 -kInfinityF     },
        {Real(1e308),                  kMax32,     kMaxU32,    true,  1e+308,                 kInfinityF      },
        {Real(-1e308),                 kMin32,     0,          true,  -1e+308,                -kInfinityF     },
        {Real(kInfinity),              kMax32,     kMaxU32,    true,  kInfinity,              kInfinityF      },
        {Real(-kInfinity),             kMin32,     0,          true,  -kInfinity,             -kInfinityF     },
        {Real(kNan),                   0,          0,          false, kNan,                   kNanF           },
        {true,                         1,          1,          true,  1.0,                    1.0F            },
        {false,                        0,          0,          false, 0.0,                    0.0F            },
    };
    for (const auto& row : rows) {
        const Node node(row.value);
        EXPECT_EQ(node.asInt(), row.asInt) << row.value;
        EXPECT_EQ(node.asUInt(), row.asUInt) << row.value;
        EXPECT_EQ(node.asBool(), row.asBool) << row.value;
        EXPECT_TRUE(Same(node.asDouble(), row.asDouble)) << row.value << node.asDouble();
        EXPECT_TRUE(Same(node.asFloat(), row.asFloat)) << row.value << node.asFloat();
        EXPECT_EQ(node.utcSeconds(), long{row.asInt}) << row.value;
        EXPECT_EQ(node.unsignedUtcSeconds(), long{row.asUInt}) << row.value;
    }
}

TEST(Node, ReadsBitsOfNumbersAtEveryBorder) {
    const struct {
        Json::Value value;
        unsigned char intLow8;
        unsigned char uintLow8;
        unsigned short intLow16;
        unsigned short uintLow16;
        int intPlusOne;
        long long realToInt64;
    } rows[] = {
        {Int(0),                       0,   0,   0,     0,     1,           0                   },
        {Int(1),                       1,   1,   1,     1,     2,           1                   },
        {Int(-1),                      255, 255, 65535, 65535, 0,           -1                  },
        {Int(127),                     127, 127, 127,   127,   128,         127                 },
        {Int(128),                     128, 128, 128,   128,   129,         128                 },
        {Int(-128),                    128, 128, 65408, 65408, -127,        -128                },
        {Int(-129),                    127, 127, 65407, 65407, -128,        -129                },
        {Int(255),                     255, 255, 255,   255,   256,         255                 },
        {Int(256),                     0,   0,   256,   256,   257,         256                 },
        {Int(-255),                    1,   1,   65281, 65281, -254,        -255                },
        {Int(-256),                    0,   0,   65280, 65280, -255,        -256                },
        {Int(-257),                    255, 255, 65279, 65279, -256,        -257                },
        {Int(32767),                   255, 255, 32767, 32767, 32768,       32767               },
        {Int(32768),                   0,   0,   32768, 32768, 32769,       32768               },
        {Int(-32768),                  0,   0,   32768, 32768, -32767,      -32768              },
        {Int(-32769),                  255, 255, 32767, 32767, -32768,      -32769              },
        {Int(65535),                   255, 255, 65535, 65535, 65536,       65535               },
        {Int(65536),                   0,   0,   0,     0,     65537,       65536               },
        {Int(-65536),                  0,   0,   0,     0,     -65535,      -65536              },
        {Int(-65537),                  255, 255, 65535, 65535, -65536,      -65537              },
        {Int(2147483646),              254, 254, 65534, 65534, kMax32,      2147483646          },
        {Int(2147483647),              255, 255, 65535, 65535, kMin32,      2147483647          },
        {Int(-2147483648),             0,   0,   0,     0,     -2147483647, -2147483648         },
        {Int(2147483648),              0,   0,   0,     0,     -2147483647, 2147483648          },
        {Int(-2147483649),             255, 255, 65535, 65535, kMin32,      -2147483649         },
        {Int(4294967295),              255, 255, 65535, 65535, 0,           4294967295          },
        {Int(4294967296),              0,   0,   0,     0,     1,           4294967296          },
        {Int(4294967297),              1,   1,   1,     1,     2,           4294967297          },
        {Int(-4294967295),             1,   1,   1,     1,     2,           -4294967295         },
        {Int(-4294967296),             0,   0,   0,     0,     1,           -4294967296         },
        {Int(4026990592),              0,   0,   0,     0,     -267976703,  4026990592          },
        {Int(9007199254740993),        1,   1,   1,     1,     2,           9007199254740992    },
        {Int(1152921573326323713),     1,   1,   1,     1,     2,           1152921573326323712 },
        {Int(kMax64),                  255, 255, 65535, 65535, 0,           kMax64              },
        {Int(kMin64),                  0,   0,   0,     0,     1,           kMin64              },
        {Int(-9223372036854775807),    1,   1,   1,     1,     2,           kMin64              },
        {UInt(0),                      0,   0,   0,     0,     1,           0                   },
        {UInt(255),                    255, 255, 255,   255,   256,         255                 },
        {UInt(2147483647),             255, 255, 65535, 65535, kMin32,      2147483647          },
        {UInt(2147483648),             0,   0,   0,     0,     -2147483647, 2147483648          },
        {UInt(4294967295),             255, 255, 65535, 65535, 0,           4294967295          },
        {UInt(4294967296),             0,   0,   0,     0,     1,           4294967296          },
        {UInt(9223372036854775807),    255, 255, 65535, 65535, 0,           kMax64              },
        {UInt(9223372036854775808U),   0,   0,   0,     0,     1,           kMax64              },
        {UInt(9223372036854775809U),   1,   1,   1,     1,     2,           kMax64              },
        {UInt(kMaxU64),                255, 255, 65535, 65535, 0,           kMax64              },
        {Real(0.0),                    0,   0,   0,     0,     1,           0                   },
        {Real(-0.0),                   0,   0,   0,     0,     1,           0                   },
        {Real(0.5),                    0,   0,   0,     0,     1,           0                   },
        {Real(-0.5),                   0,   0,   0,     0,     1,           0                   },
        {Real(0.9999999),              0,   0,   0,     0,     1,           0                   },
        {Real(-0.9999999),             0,   0,   0,     0,     1,           0                   },
        {Real(1.0),                    1,   1,   1,     1,     2,           1                   },
        {Real(-1.0),                   255, 0,   65535, 0,     0,           -1                  },
        {Real(-2.9),                   254, 0,   65534, 0,     -1,          -2                  },
        {Real(2.9),                    2,   2,   2,     2,     3,           2                   },
        {Real(126.9),                  126, 126, 126,   126,   127,         126                 },
        {Real(127.5),                  127, 127, 127,   127,   128,         127                 },
        {Real(255.0),                  255, 255, 255,   255,   256,         255                 },
        {Real(255.9),                  255, 255, 255,   255,   256,         255                 },
        {Real(256.0),                  0,   0,   256,   256,   257,         256                 },
        {Real(-256.0),                 0,   0,   65280, 0,     -255,        -256                },
        {Real(32767.5),                255, 255, 32767, 32767, 32768,       32767               },
        {Real(65535.9),                255, 255, 65535, 65535, 65536,       65535               },
        {Real(65536.0),                0,   0,   0,     0,     65537,       65536               },
        {Real(2147483646.5),           254, 254, 65534, 65534, kMax32,      2147483646          },
        {Real(2147483647.0),           255, 255, 65535, 65535, kMin32,      2147483647          },
        {Real(2147483647.5),           255, 255, 65535, 65535, kMin32,      2147483647          },
        {Real(2147483648.0),           255, 0,   65535, 0,     kMin32,      2147483648          },
        {Real(-2147483648.0),          0,   0,   0,     0,     -2147483647, -2147483648         },
        {Real(-2147483648.5),          0,   0,   0,     0,     -2147483647, -2147483648         },
        {Real(-2147483649.0),          0,   0,   0,     0,     -2147483647, -2147483649         },
        {Real(4294967295.0),           255, 255, 65535, 65535, kMin32,      4294967295          },
        {Real(4294967295.5),           255, 255, 65535, 65535, kMin32,      4294967295          },
        {Real(4294967296.0),           255, 255, 65535, 65535, kMin32,      4294967296          },
        {Real(-4294967296.0),          0,   0,   0,     0,     -2147483647, -4294967296         },
        {Real(16777217.0),             1,   1,   1,     1,     16777218,    16777217            },
        {Real(0.1),                    0,   0,   0,     0,     1,           0                   },
        {Real(9007199254740993.0),     255, 255, 65535, 65535, kMin32,      9007199254740992    },
        {Real(9.2e18),                 255, 255, 65535, 65535, kMin32,      9200000000000000000 },
        {Real(9223372036854774784.0),  255, 255, 65535, 65535, kMin32,      9223372036854774784 },
        {Real(9223372036854775808.0),  255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(-9223372036854775808.0), 0,   0,   0,     0,     -2147483647, kMin64              },
        {Real(-9223372036854774784.0), 0,   0,   0,     0,     -2147483647, -9223372036854774784},
        {Real(9.3e18),                 255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(-9.3e18),                0,   0,   0,     0,     -2147483647, kMin64              },
        {Real(18446744073709549568.0), 255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(18446744073709551616.0), 255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(1e-310),                 0,   0,   0,     0,     1,           0                   },
        {Real(3.4028235677973366e38),  255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(1e39),                   255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(-1e39),                  0,   0,   0,     0,     -2147483647, kMin64              },
        {Real(1e308),                  255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(-1e308),                 0,   0,   0,     0,     -2147483647, kMin64              },
        {Real(kInfinity),              255, 255, 65535, 65535, kMin32,      kMax64              },
        {Real(-kInfinity),             0,   0,   0,     0,     -2147483647, kMin64              },
        {Real(kNan),                   0,   0,   0,     0,     1,           0                   },
        {true,                         1,   1,   1,     1,     2,           1                   },
        {false,                        0,   0,   0,     0,     1,           0                   },
    };
    for (const auto& row : rows) {
        const Node node(row.value);
        EXPECT_EQ(node.intLow8(), row.intLow8) << row.value;
        EXPECT_EQ(node.uintLow8(), row.uintLow8) << row.value;
        EXPECT_EQ(node.intLow16(), row.intLow16) << row.value;
        EXPECT_EQ(node.uintLow16(), row.uintLow16) << row.value;
        EXPECT_EQ(node.intPlusOne(), row.intPlusOne) << row.value;
        EXPECT_EQ(node.realToInt64(), row.realToInt64) << row.value;
    }
}

TEST(Node, SecondsOfTheUpperHalfAreNegativeOnlyWhenSigned) {
    const Json::Value value = UInt(4294967295);
    EXPECT_EQ(Node(value).utcSeconds(), -1L);
    EXPECT_EQ(Node(value).unsignedUtcSeconds(), 4294967295L);
}

TEST(Node, WhatIsNoNumberReadsAsZero) {
    const char* const texts[] = {"null", R"("")", R"("7")", R"("true")", R"("\u0000")",
                                 "[]",   "[7]",   "{}",     R"({"": 7})"};
    for (const char* text : texts) {
        const Json::Value value = Json(text);
        for (const Node node : {Node(value), kMissing}) {
            EXPECT_EQ(node.asInt(), 0) << text;
            EXPECT_EQ(node.asUInt(), 0U) << text;
            EXPECT_TRUE(Same(node.asDouble(), 0.0)) << text;
            EXPECT_TRUE(Same(node.asFloat(), 0.0F)) << text;
            EXPECT_FALSE(node.asBool()) << text;
            EXPECT_EQ(node.intLow8(), 0) << text;
            EXPECT_EQ(node.uintLow8(), 0) << text;
            EXPECT_EQ(node.intLow16(), 0) << text;
            EXPECT_EQ(node.uintLow16(), 0) << text;
            EXPECT_EQ(node.intPlusOne(), 1) << text;
            EXPECT_EQ(node.realToInt64(), 0) << text;
            EXPECT_EQ(node.utcSeconds(), 0) << text;
            EXPECT_EQ(node.unsignedUtcSeconds(), 0) << text;
        }
    }
}

/// What jsoncpp itself reads; nothing where it throws.
template <class Read>
auto ByJsoncpp(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const Json::Exception&) {
        return std::nullopt;
    }
}

TEST(Node, ReadsWhatJsoncppReadsWhereThatDoesNotThrow) {
    std::size_t compared = 0;
    for (const Json::Value& value : HostileValues()) {
        const Node node(value);
        const auto expectSame = [&](auto own, auto theirs) {
            if (!theirs) return;
            EXPECT_EQ(own, *theirs) << value;
            ++compared;
        };
        expectSame(node.asInt(), ByJsoncpp([&] { return value.asInt(); }));
        expectSame(node.asUInt(), ByJsoncpp([&] { return value.asUInt(); }));
        expectSame(node.asBool(), ByJsoncpp([&] { return value.asBool(); }));
        if (const auto theirs = ByJsoncpp([&] { return value.asDouble(); })) {
            EXPECT_TRUE(Same(node.asDouble(), *theirs)) << value;
            EXPECT_TRUE(Same(node.asFloat(), static_cast<float>(*theirs))) << value;
        }
        expectSame(static_cast<bool>(node), ByJsoncpp([&] { return !value.isNull(); }));
        expectSame(node.isArray(), ByJsoncpp([&] { return value.isArray(); }));
        expectSame(node.isString(), ByJsoncpp([&] { return value.isString(); }));
        expectSame(node.isInt(), ByJsoncpp([&] { return value.isInt(); }));
        expectSame(node.isUInt(), ByJsoncpp([&] { return value.isUInt(); }));
        expectSame(node.isBool(), ByJsoncpp([&] { return value.isBool(); }));
        if (const auto theirs = ByJsoncpp([&] { return value.asString(); })) {
            Buffer field(theirs->size() + 1);
            node.rawTo(field.get(), theirs->size());
            EXPECT_EQ(field.text(), theirs->c_str());
        }
    }
    EXPECT_GE(compared, 500U);
}

// ---- tests

TEST(Node, TellsTheTypes) {
    const struct {
        Json::Value value;
        bool present;
        bool isArray;
        bool isString;
        bool isInt;
        bool isUInt;
        bool isBool;
    } rows[] = {
        {Json::Value(),       false, false, false, false, false, false},
        {true,                true,  false, false, false, false, true },
        {false,               true,  false, false, false, false, true },
        {"",                  true,  false, true,  false, false, false},
        {"7",                 true,  false, true,  false, false, false},
        {Json("[]"),          true,  true,  false, false, false, false},
        {Json("[7]"),         true,  true,  false, false, false, false},
        {Json("{}"),          true,  false, false, false, false, false},
        {Int(0),              true,  false, false, true,  true,  false},
        {Int(-1),             true,  false, false, true,  false, false},
        {Int(kMin32),         true,  false, false, true,  false, false},
        {Int(-2147483649),    true,  false, false, false, false, false},
        {Int(kMax32),         true,  false, false, true,  true,  false},
        {Int(2147483648),     true,  false, false, false, true,  false},
        {Int(4294967295),     true,  false, false, false, true,  false},
        {Int(4294967296),     true,  false, false, false, false, false},
        {Int(kMin64),         true,  false, false, false, false, false},
        {UInt(kMax32),        true,  false, false, true,  true,  false},
        {UInt(2147483648),    true,  false, false, false, true,  false},
        {UInt(kMaxU32),       true,  false, false, false, true,  false},
        {UInt(4294967296),    true,  false, false, false, false, false},
        {UInt(kMaxU64),       true,  false, false, false, false, false},
        {Real(0.0),           true,  false, false, true,  true,  false},
        {Real(-0.0),          true,  false, false, true,  true,  false},
        {Real(-1.0),          true,  false, false, true,  false, false},
        {Real(1.5),           true,  false, false, false, false, false},
        {Real(2147483647.0),  true,  false, false, true,  true,  false},
        {Real(2147483647.5),  true,  false, false, false, false, false},
        {Real(2147483648.0),  true,  false, false, false, true,  false},
        {Real(-2147483648.0), true,  false, false, true,  false, false},
        {Real(-2147483649.0), true,  false, false, false, false, false},
        {Real(4294967295.0),  true,  false, false, false, true,  false},
        {Real(4294967296.0),  true,  false, false, false, false, false},
        {Real(1e308),         true,  false, false, false, false, false},
        {Real(kInfinity),     true,  false, false, false, false, false},
        {Real(-kInfinity),    true,  false, false, false, false, false},
        {Real(kNan),          true,  false, false, false, false, false},
    };
    for (const auto& row : rows) {
        const Node node(row.value);
        EXPECT_EQ(static_cast<bool>(node), row.present) << row.value;
        EXPECT_TRUE(node.isMember()) << row.value;
        EXPECT_EQ(node.isArray(), row.isArray) << row.value;
        EXPECT_EQ(node.isString(), row.isString) << row.value;
        EXPECT_EQ(node.isInt(), row.isInt) << row.value;
        EXPECT_EQ(node.isUInt(), row.isUInt) << row.value;
        EXPECT_EQ(node.isBool(), row.isBool) << row.value;
    }
    EXPECT_FALSE(kMissing);
    EXPECT_FALSE(kMissing.isMember());
    EXPECT_FALSE(kMissing.isArray());
    EXPECT_FALSE(kMissing.isString());
    EXPECT_FALSE(kMissing.isInt());
    EXPECT_FALSE(kMissing.isUInt());
    EXPECT_FALSE(kMissing.isBool());
}

// ---- way down

TEST(Node, OnlyArraysHaveASize) {
    const struct {
        const char* json;
        std::size_t size;
    } rows[] = {
        {"[]",                  0},
        {"[null]",              1},
        {"[1, 2, 3]",           3},
        {"null",                0},
        {"true",                0},
        {"7",                   0},
        {"1.5",                 0},
        {R"("abc")",            0},
        {"{}",                  0},
        {R"({"a": 1, "b": 2})", 0},
    };
    for (const auto& row : rows) {
        const Json::Value value = Json(row.json);
        EXPECT_EQ(Node(value).size(), row.size) << row.json;
    }
    EXPECT_EQ(kMissing.size(), 0U);
    Json::Value sparse;
    sparse[5] = 1;
    EXPECT_EQ(Node(sparse).size(), 6U);
}

TEST(Node, ElementsAreThoseOfAnArrayWithinItsSize) {
    const Json::Value value = Json("[10, null, 12]");
    const Node array(value);
    EXPECT_EQ(array.at(0).asInt(), 10);
    EXPECT_FALSE(array.at(1));
    EXPECT_TRUE(array.at(1).isMember());
    EXPECT_EQ(array.at(2).asInt(), 12);
    for (const std::size_t index :
         {std::size_t{3}, std::size_t{4294967295}, std::size_t{4294967296}, std::numeric_limits<std::size_t>::max()}) {
        EXPECT_FALSE(array.at(index).isMember()) << index;
        EXPECT_EQ(array.at(index).asInt(), 0) << index;
    }
}

TEST(Node, ElementsOfASparseArrayThatItDoesNotHoldAreNull) {
    Json::Value sparse;
    sparse[5] = 1;
    for (std::size_t i = 0; i < 5; ++i) EXPECT_FALSE(Node(sparse).at(i)) << i;
    EXPECT_EQ(Node(sparse).at(5).asInt(), 1);
}

TEST(Node, WhatIsNoArrayHasNoElements) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isArray()) continue;
        EXPECT_FALSE(Node(value).at(0).isMember()) << value;
    }
    EXPECT_FALSE(kMissing.at(0).isMember());
    EXPECT_FALSE(kMissing.at(0).at(1)["x"].at(2).isMember());
}

TEST(Node, MembersAreThoseOfAnObject) {
    const Json::Value value = Json(R"({"": 1, "a": 2, "ab": 3, "b": null, "路": 4, "a\u0000": 5, "A": 6})");
    const Node object(value);
    const struct {
        std::string_view name;
        int expected;
    } rows[] = {
        {""sv,    1},

        {"a"sv,   2},
        {"ab"sv,  3},
        {"路"sv, 4},
        {"a\0"sv, 5},
        {"A"sv,   6},
    };
    for (const auto& row : rows) EXPECT_EQ(object[row.name].asInt(), row.expected) << row.name;
    EXPECT_FALSE(object["b"]);
    EXPECT_TRUE(object["b"].isMember());
    for (const std::string_view name : {"B"sv, "abc"sv, "a\0\0"sv, "\0"sv, "b\0"sv}) {
        EXPECT_FALSE(object[name].isMember()) << name;
    }
}

TEST(Node, ANameOfNoBytesIsTheEmptyNameWhereverItPoints) {
    const Json::Value value = Json(R"({"": 1, "a": 2})");
    EXPECT_EQ(Node(value)[""].asInt(), 1);
    EXPECT_EQ(Node(value)[std::string_view()].asInt(), 1);
}

TEST(Node, WhatIsNoObjectHasNoMembers) {
    for (const Json::Value& value : HostileValues()) {
        if (value.isObject()) continue;
        EXPECT_FALSE(Node(value)["UTC"].isMember()) << value;
        EXPECT_FALSE(Node(value)[""].isMember()) << value;
    }
    EXPECT_FALSE(kMissing["UTC"].isMember());
    EXPECT_FALSE(kMissing["UTC"]["UTC"].isMember());
}

// ---- text into a field

/// Every kind of value with the text that it reads as.
std::vector<std::pair<Json::Value, std::string>> Texts() {
    return {
        {Json::Value(),           ""                    },
        {true,                    "true"                },
        {false,                   "false"               },
        {Int(0),                  "0"                   },
        {Int(kMin64),             "-9223372036854775808"},
        {UInt(kMaxU64),           "18446744073709551615"},
        {Real(-0.0),              "-0.0"                },
        {Real(1.5),               "1.5"                 },
        {Real(0.1),               "0.10000000000000001" },
        {Real(1e308),             "1e+308"              },
        {Real(kInfinity),         "1e+9999"             },
        {Real(-kInfinity),        "-1e+9999"            },
        {Real(kNan),              "null"                },
        {"",                      ""                    },
        {"Rapid",                 "Rapid"               },
        {"aé路😀z",           "aé路😀z"         },
        {"\xFF\xFE\x80",          "\xFF\xFE\x80"        },
        {"abc\0def"s,             "abc"                 },
        {"\0abc"s,                ""                    },
        {Json("[]"),              ""                    },
        {Json(R"(["text"])"),     ""                    },
        {Json("{}"),              ""                    },
        {Json(R"({"": "text"})"), ""                    },
    };
}

constexpr std::size_t kField = 40;

TEST(Node, RawToWritesTheTextOfAnyValueAndATerminator) {
    for (const auto& [value, text] : Texts()) {
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, text.size(), text.size() + 1, kField - 1}) {
            Buffer field(kField);
            Node(value).rawTo(field.get(), count);
            EXPECT_EQ(field.all(), Holding(text.substr(0, count), kField)) << value << count;
        }
        if (text.empty()) continue;
        Buffer field(text.size());
        Node(value).rawTo(field.get(), text.size() - 1);
        EXPECT_EQ(field.text(), text.substr(0, text.size() - 1)) << value;
    }
    Buffer field(kField);
    kMissing.rawTo(field.get(), kField - 1);
    EXPECT_EQ(field.all(), Holding("", kField));
}

TEST(Node, RawToCutsByteForByte) {
    const std::string expected[] = {"",           "a",      "a\xC3",    "aé",           "aé\xE8",
                                    "aé\xE8\xB7", "aé路",   "aé路\xF0", "aé路\xF0\x9F", "aé路\xF0\x9F\x98",
                                    "aé路😀",      "aé路😀z", "aé路😀z"};
    const Json::Value value = "aé路😀z";
    for (std::size_t count = 0; count < std::size(expected); ++count) {
        Buffer field(count + 1);
        Node(value).rawTo(field.get(), count);
        EXPECT_EQ(field.all(), Holding(expected[count], count + 1).substr(0, count + 1)) << count;
    }
}

TEST(Node, Utf8ToWritesTheTextOfAnyValueButNull) {
    const Utf8Texts utf8;
    for (const auto& [value, text] : Texts()) {
        const auto length = static_cast<int>(text.size());
        for (const int limit : {0, 1, length - 1, length, length + 1, 260, INT_MAX}) {
            Buffer field(kField);
            Node(value).utf8To(field.get(), limit);
            if (value.isNull() || limit < 0) {
                EXPECT_TRUE(field.untouched()) << value << limit;
            } else {
                EXPECT_EQ(field.all(), Holding(text.substr(0, static_cast<std::size_t>(limit)), kField))
                    << value << limit;
            }
        }
    }
}

TEST(Node, Utf8ToLeavesTheFieldAsItWasForNullAndForANegativeLimit) {
    const Json::Value null;
    const Json::Value text = "text";
    for (const int limit : {0, 1, 32, -1, INT_MIN, INT_MAX}) {
        Buffer field(8);
        Node(null).utf8To(field.get(), limit);
        kMissing.utf8To(field.get(), limit);
        if (limit < 0) Node(text).utf8To(field.get(), limit);
        EXPECT_TRUE(field.untouched()) << limit;
    }
}

TEST(Node, Utf8ToPutsTheTerminatorBehindTheLimit) {
    const Json::Value value = std::string(40, 'x');
    Buffer field(33);
    Node(value).utf8To(field.get(), 32);
    EXPECT_EQ(field.all(), std::string(32, 'x') + '\0');
}

TEST(Node, Utf8ToTakesSoManyBytesOfASourceThatIsCopied) {
    const Utf8Texts utf8;
    const std::string expected[] = {"", "a", "a\xC3", "aé", "aé\xE8", "aé\xE8\xB7", "aé路", "aé路z", "aé路z"};
    const Json::Value value = "aé路z";
    for (std::size_t limit = 0; limit < std::size(expected); ++limit) {
        Buffer field(limit + 1);
        Node(value).utf8To(field.get(), static_cast<int>(limit));
        EXPECT_EQ(field.text(), expected[limit]) << limit;
    }
}

TEST(Node, StringToCopiesTextsAndEmptiesTheFieldForAllElse) {
    const Utf8Texts utf8;
    for (const auto& [value, text] : Texts()) {
        Buffer field(kField);
        EXPECT_EQ(Node(value).stringTo(field.get(), kField), value.isString()) << value;
        EXPECT_EQ(field.text(), value.isString() ? text : "") << value;
    }
    Buffer field(kField);
    EXPECT_FALSE(kMissing.stringTo(field.get(), kField));
    EXPECT_EQ(field.text(), "");
}

TEST(Node, RenderToWritesAnyValueAsText) {
    const Utf8Texts utf8;
    for (const auto& [value, text] : Texts()) {
        if (value.isArray() || value.isObject()) continue;
        Buffer field(kField);
        Node(value).renderTo(field.get(), kField);
        EXPECT_EQ(field.text(), text) << value;
    }
    for (const char* json : {"[]", "{}", R"([1,"é",null])", R"({"a":{"b":[true]}})"}) {
        const Json::Value value = Json(json);
        Buffer field(kField);
        Node(value).renderTo(field.get(), kField);
        EXPECT_EQ(field.text(), json);
    }
    Buffer field(kField);
    kMissing.renderTo(field.get(), kField);
    EXPECT_EQ(field.text(), "");
}

TEST(Node, StringToAndRenderToCutBetweenCharacters) {
    const Utf8Texts utf8;
    const std::string expected[] = {"",     "a",    "a",    "aé",    "aé",     "aé",    "aé路",
                                    "aé路", "aé路", "aé路", "aé路😀", "aé路😀z", "aé路😀z"};
    const Json::Value value = "aé路😀z";
    for (std::size_t size = 1; size <= std::size(expected); ++size) {
        Buffer field(size);
        EXPECT_TRUE(Node(value).stringTo(field.get(), static_cast<int>(size)));
        EXPECT_EQ(field.text(), expected[size - 1]) << size;
        Buffer rendered(size);
        Node(value).renderTo(rendered.get(), static_cast<int>(size));
        EXPECT_EQ(rendered.text(), expected[size - 1]) << size;
    }
}

TEST(Node, StringToAndRenderToWriteNothingForASizeOfZeroOrLess) {
    for (const int size : {0, -1, INT_MIN}) {
        for (const auto& [value, text] : Texts()) {
            Buffer field(8);
            EXPECT_EQ(Node(value).stringTo(field.get(), size), value.isString()) << value;
            Node(value).renderTo(field.get(), size);
            EXPECT_TRUE(field.untouched()) << value << size;
        }
    }
}

TEST(Node, HeapUtf8GivesTheTextOfAnyValue) {
    const Utf8Texts utf8;
    for (const auto& [value, text] : Texts()) {
        const std::unique_ptr<char[]> heap(Node(value).heapUtf8());
        ASSERT_NE(heap, nullptr) << value;
        EXPECT_EQ(heap.get(), text) << value;
    }
    const std::unique_ptr<char[]> heap(kMissing.heapUtf8());
    ASSERT_NE(heap, nullptr);
    EXPECT_STREQ(heap.get(), "");
    const std::string longText(100000, 'x');
    const Json::Value value = longText;
    const std::unique_ptr<char[]> heapOfALongText(Node(value).heapUtf8());
    EXPECT_EQ(heapOfALongText.get(), longText);
}

TEST(Node, HeapUtf8IsZeroToTheEndOfItsBytes) {
    const Json::Value value = "abc\0def"s;
    const std::unique_ptr<char[]> heap(Node(value).heapUtf8());
    EXPECT_EQ(std::string(heap.get(), 8), "abc\0\0\0\0\0"s);
}

// ---- text as such

TEST(Node, ScansTextsNumbersAndBools) {
    const struct {
        Json::Value value;
        bool all;
        int first;
        int second;
    } rows[] = {
        {"12:34",                  true,  12,  34},
        {" 12:34 and more",        true,  12,  34},
        {"12:",                    false, 12,  99},
        {"12-34",                  false, 12,  99},
        {"x",                      false, 99,  99},
        {"",                       false, 99,  99},
        {"12:3\0004"s,             true,  12,  3 },
        {"12\0:34"s,               false, 12,  99},
        {Int(12),                  false, 12,  99},
        {Int(-12),                 false, -12, 99},
        {Real(1.5),                false, 1,   99},
        {true,                     false, 99,  99},
        {Json::Value(),            false, 99,  99},
        {Json(R"(["12:34"])"),     false, 99,  99},
        {Json(R"({"": "12:34"})"), false, 99,  99},
    };
    for (const auto& row : rows) {
        int first = 99;
        int second = 99;
        EXPECT_EQ(Node(row.value).scan("%d:%d", Signs::Allowed, first, second), row.all) << row.value;
        EXPECT_EQ(first, row.first) << row.value;
        EXPECT_EQ(second, row.second) << row.value;
    }
    int word = 99;
    EXPECT_FALSE(kMissing.scan("%d", Signs::Allowed, word));
    EXPECT_EQ(word, 99);
}

TEST(Node, ScansIntoWordsOfEveryType) {
    const Json::Value value = "-1 -2 300 70000";
    int signedWord = 0;
    unsigned unsignedWord = 0;
    unsigned char byte = 0;
    unsigned short half = 0;
    EXPECT_TRUE(Node(value).scan("%d %d %d %d", Signs::Allowed, signedWord, unsignedWord, byte, half));
    EXPECT_EQ(signedWord, -1);
    EXPECT_EQ(unsignedWord, 4294967294U);
    EXPECT_EQ(byte, 44);
    EXPECT_EQ(half, 4464);
}

constexpr Keyword kWords[] = {
    {10, ""     },
    {11, "Rapid"},
    {12, "rapid"},
    {13, "RAPID"},
    {14, "Rapid"},
    {15, "true" },
    {16, "-7"   },
    {17, "1.5"  },
    {18, "路"  },
};

TEST(Node, LooksKeywordsUpByTheTextOfAnyValue) {
    const struct {
        Json::Value value;
        int firstExact;
        int firstIgnoringCase;
        int lastIgnoringCase;
    } rows[] = {
        {"Rapid",                 11, 11, 14},
        {"rapid",                 12, 11, 14},
        {"RAPID",                 13, 11, 14},
        {"rAPID",                 99, 11, 14},
        {"Rapi",                  99, 99, 99},
        {"Rapids",                99, 99, 99},
        {"路",                   18, 18, 18},
        {"",                      10, 10, 10},
        {"Rapid\0x"s,             99, 11, 14},
        {"\0"s,                   99, 10, 10},
        {true,                    15, 15, 15},
        {false,                   99, 99, 99},
        {Int(-7),                 16, 16, 16},
        {Int(7),                  99, 99, 99},
        {Real(1.5),               17, 17, 17},
        {Json::Value(),           10, 10, 10},
        {Json(R"(["Rapid"])"),    10, 10, 10},
        {Json(R"({"Rapid": 1})"), 10, 10, 10},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Node(row.value).firstExact(kWords, 99), row.firstExact) << row.value;
        EXPECT_EQ(Node(row.value).firstIgnoringCase(kWords, 99), row.firstIgnoringCase) << row.value;
        EXPECT_EQ(Node(row.value).lastIgnoringCase(kWords, 99), row.lastIgnoringCase) << row.value;
        EXPECT_EQ(Node(row.value).firstExact(Keywords{}, -5), -5) << row.value;
        EXPECT_EQ(Node(row.value).firstIgnoringCase({}, -5), -5) << row.value;
        EXPECT_EQ(Node(row.value).lastIgnoringCase({}, -5), -5) << row.value;
    }
    EXPECT_EQ(kMissing.firstExact(kWords, 99), 10);
    EXPECT_EQ(kMissing.firstIgnoringCase(kWords, 99), 10);
    EXPECT_EQ(kMissing.lastIgnoringCase(kWords, 99), 10);
}

TEST(Node, EveryOperationIsDefinedForEveryValue) {
    for (const Json::Value& value : HostileValues()) {
        const Node node(value);
        Buffer field(33);
        EXPECT_NO_THROW({
            node.rawTo(field.get(), 32);
            node.utf8To(field.get(), 32);
            node.stringTo(field.get(), 33);
            node.renderTo(field.get(), 33);
            delete[] node.heapUtf8();
            int word = 0;
            node.scan("%04d-%02d", Signs::Refused, word, word);
            node.firstExact(kWords, 0);
            node.lastIgnoringCase(kWords, 0);
        }) << value;
    }
}

}  // namespace
