// Words of the mobile-data configuration. The first row of each table is the missing word.
#ifndef VKPROTOCOLSTACK_CONFIG_MOBILE_DATA_KEYWORDS_H
#define VKPROTOCOLSTACK_CONFIG_MOBILE_DATA_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kWirelessApns[] = {
    {0, ""      },
    {1, "CTNET" },
    {2, "CMNET" },
    {3, "UNINET"}
};
static_assert(std::size(kWirelessApns) == 4 && CodesAreIndexes(kWirelessApns));

inline constexpr Keyword kWirelessAuthModes[] = {
    {0, ""    },
    {1, "No"  },
    {2, "PAP" },
    {3, "CHAP"}
};
static_assert(std::size(kWirelessAuthModes) == 4 && CodesAreIndexes(kWirelessAuthModes));

inline constexpr Keyword kWirelessTactics[] = {
    {0, ""      },
    {1, "ByFlux"},
    {2, "ByTime"}
};
static_assert(std::size(kWirelessTactics) == 3 && CodesAreIndexes(kWirelessTactics));

inline constexpr Keyword kWirelessFluxActions[] = {
    {0, ""         },
    {1, "Nothing"  },
    {2, "3GNetDown"}
};
static_assert(std::size(kWirelessFluxActions) == 3 && CodesAreIndexes(kWirelessFluxActions));

inline constexpr Keyword kWirelessWorkModes[] = {
    {0, ""        },
    {1, "CDMA1x"  },
    {2, "EVDO"    },
    {3, "TD-SCDMA"},
    {4, "WCDMA"   },
    {5, "EDGE"    },
    {6, "TDD-LTE" },
    {7, "FDD-LTE" }
};
static_assert(std::size(kWirelessWorkModes) == 8 && CodesAreIndexes(kWirelessWorkModes));

}  // namespace jsonparser

#endif
