#include "vkprotocolstack/wire/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using jsonparser::Truncate;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

template <class Integer>
struct Row {
    double value;
    Integer expected;
};

template <class Integer, std::size_t N>
void Expect(const Row<Integer> (&rows)[N]) {
    for (const auto& row : rows) EXPECT_EQ(Truncate<Integer>(row.value), row.expected) << row.value;
}

TEST(Truncate, CutsTowardZeroAndStopsAtTheLimits) {
    Expect<signed char>({
        {127.9,  127 },
        {128.0,  127 },
        {-128.9, -128},
        {-129.0, -128},
        {-1.9,   -1  },
        {kNan,   0   }
    });
    Expect<unsigned char>({
        {255.9, 255},
        {256.0, 255},
        {-0.9,  0  },
        {-1.0,  0  },
        {1.9,   1  },
        {kNan,  0  }
    });
    Expect<short>({
        {32767.9,  32767 },
        {32768.0,  32767 },
        {-32768.9, -32768},
        {-32769.0, -32768},
        {kNan,     0     }
    });
    Expect<unsigned short>({
        {65535.9, 65535},
        {65536.0, 65535},
        {-1.0,    0    },
        {kNan,    0    }
    });
    Expect<int>({
        {0.9,           0              },
        {-0.9,          0              },
        {2147483646.9,  2147483646     },
        {2147483647.5,  2147483647     },
        {2147483648.0,  2147483647     },
        {-2147483647.9, -2147483647    },
        {-2147483648.9, -2147483647 - 1},
        {-2147483649.0, -2147483647 - 1},
        {kInfinity,     2147483647     },
        {-kInfinity,    -2147483647 - 1},
        {kNan,          0              }
    });
    Expect<unsigned>({
        {4294967294.9, 4294967294U},
        {4294967295.5, 4294967295U},
        {4294967296.0, 4294967295U},
        {-0.0,         0          },
        {-1e308,       0          },
        {kInfinity,    4294967295U},
        {-kInfinity,   0          },
        {kNan,         0          }
    });
    Expect<long long>({
        {9007199254740993.0,     9007199254740992        },
        {9223372036854774784.0,  9223372036854774784     },
        {9223372036854775808.0,  9223372036854775807     },
        {1e308,                  9223372036854775807     },
        {-9223372036854774784.0, -9223372036854774784    },
        {-9223372036854775808.0, -9223372036854775807 - 1},
        {-1e308,                 -9223372036854775807 - 1},
        {kNan,                   0                       }
    });
    Expect<unsigned long long>({
        {18446744073709549568.0, 18446744073709549568U},
        {18446744073709551616.0, 18446744073709551615U},
        {-1.0,                   0                    },
        {kNan,                   0                    }
    });
}

TEST(Truncate, IsDefinedWhileCompiling) {
    static_assert(Truncate<int>(1e10) == 2147483647);
    static_assert(Truncate<unsigned>(kNan) == 0);
    SUCCEED();
}

}  // namespace
