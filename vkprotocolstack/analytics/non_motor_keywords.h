// Words of non-motor vehicles.
#ifndef VKPROTOCOLSTACK_ANALYTICS_NON_MOTOR_KEYWORDS_H
#define VKPROTOCOLSTACK_ANALYTICS_NON_MOTOR_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kNonMotorCategories[] = {
    {0,  ""                      },
    {1,  "Tricycle"              },
    {2,  "Motorcycle"            },
    {3,  "Non-Motor"             },
    {4,  "Bicycle"               },
    {5,  "DualTriWheelMotorcycle"},
    {6,  "LightMotorcycle"       },
    {7,  "EmbassyMotorcycle"     },
    {8,  "MarginalMotorcycle"    },
    {9,  "AreaoutMotorcycle"     },
    {10, "ForeignMotorcycle"     },
    {11, "TrialMotorcycle"       },
    {12, "CoachMotorcycle"       }
};
static_assert(std::size(kNonMotorCategories) == 13 && CodesAreIndexes(kNonMotorCategories));

inline constexpr Keyword kNonMotorColors[] = {
    {0,  ""              },
    {1,  "White"         },
    {2,  "Orange"        },
    {3,  "Pink"          },
    {4,  "Black"         },
    {5,  "Red"           },
    {6,  "Yellow"        },
    {7,  "Gray"          },
    {8,  "Blue"          },
    {9,  "Green"         },
    {10, "Purple"        },
    {11, "Brown"         },
    {12, "Sliver"        }, // devices write silver so, and only so
    {13, "Darkviolet"    },
    {14, "Maroon"        },
    {15, "Dimgray"       },
    {16, "Whitesmoke"    },
    {17, "Darkorange"    },
    {18, "Mistyrose"     },
    {19, "Tomato"        },
    {20, "Olive"         },
    {21, "Gold"          },
    {22, "Darkolivegreen"},
    {23, "Chartreuse"    },
    {24, "Greenyellow"   },
    {25, "Forestgreen"   },
    {26, "Seagreen"      },
    {27, "Chartreuse"    }, // never found behind 23; keeps the codes behind it
    {28, "Deepskyblue"   },
    {29, "Cyan"          },
    {30, "Other"         }
};
static_assert(std::size(kNonMotorColors) == 31 && CodesAreIndexes(kNonMotorColors));

}  // namespace jsonparser

#endif
