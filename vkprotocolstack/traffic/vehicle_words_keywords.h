// Words for vehicles, their plates and their drivers.
#ifndef VKPROTOCOLSTACK_TRAFFIC_VEHICLE_WORDS_KEYWORDS_H
#define VKPROTOCOLSTACK_TRAFFIC_VEHICLE_WORDS_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kPlateColours[] = {
    {0, "Other"                },
    {1, "Blue"                 },
    {2, "Yellow"               },
    {3, "White"                },
    {4, "Black"                },
    {5, "YellowbottomBlackText"},
    {6, "BluebottomWhiteText"  },
    {7, "BlackBottomWhiteText" },
    {8, "ShadowGreen"          },
    {9, "YellowGreen"          }
};
static_assert(std::size(kPlateColours) == 10 && CodesAreIndexes(kPlateColours));

inline constexpr Keyword kVehicleKinds[] = {
    {0,  "Unknown"                 },
    {1,  "Motor"                   },
    {2,  "Non-Motor"               },
    {3,  "Bus"                     },
    {4,  "Bicycle"                 },
    {5,  "Motorcycle"              },
    {6,  "UnlicensedMotor"         },
    {7,  "LargeCar"                },
    {8,  "MicroCar"                },
    {9,  "EmbassyCar"              },
    {10, "MarginalCar"             },
    {11, "AreaoutCar"              },
    {12, "ForeignCar"              },
    {13, "DualTriWheelMotorcycle"  },
    {14, "LightMotorcycle"         },
    {15, "EmbassyMotorcycle"       },
    {16, "MarginalMotorcycle"      },
    {17, "AreaoutMotorcycle"       },
    {18, "ForeignMotorcycle"       },
    {19, "FarmTransmitCar"         },
    {20, "Tractor"                 },
    {21, "Trailer"                 },
    {22, "CoachCar"                },
    {23, "CoachMotorcycle"         },
    {24, "TrialCar"                },
    {25, "TrialMotorcycle"         },
    {26, "TemporaryEntryCar"       },
    {27, "TemporaryEntryMotorcycle"},
    {28, "TemporarySteerCar"       },
    {29, "PassengerCar"            },
    {30, "LargeTruck"              },
    {31, "MidTruck"                },
    {32, "SaloonCar"               },
    {33, "Microbus"                },
    {34, "MicroTruck"              },
    {35, "Tricycle"                },
    {36, "Passerby"                }
};
static_assert(std::size(kVehicleKinds) == 37 && CodesAreIndexes(kVehicleKinds));

inline constexpr Keyword kBodyColours[] = {
    {0,  "Other" },
    {1,  "White" },
    {2,  "Black" },
    {3,  "Red"   },
    {4,  "Yellow"},
    {5,  "Gray"  },
    {6,  "Blue"  },
    {7,  "Green" },
    {8,  "Pink"  },
    {9,  "Purple"},
    {10, "Brown" }
};
static_assert(std::size(kBodyColours) == 11 && CodesAreIndexes(kBodyColours));

inline constexpr Keyword kPlateKinds[] = {
    {0,  "Other"                 },
    {1,  "Normal"                },
    {2,  "Yellow"                },
    {3,  "DoubleYellow"          },
    {4,  "Police"                },
    {5,  "Armed"                 },
    {6,  "Military"              },
    {7,  "DoubleMilitary"        },
    {8,  "SAR"                   },
    {9,  "Trainning"             }, // the devices spell it so
    {10, "Personal"              },
    {11, "Agri"                  },
    {12, "Embassy"               },
    {13, "Moto"                  },
    {14, "Tractor"               },
    {15, "OfficialCar"           },
    {16, "PersonalCar"           },
    {17, "WarCar"                },
    {18, "Other"                 }, // stands twice in the protocol; texts give row 0
    {19, "Civilaviation"         },
    {20, "Black"                 },
    {21, "PureNewEnergyMicroCar" },
    {22, "MixedNewEnergyMicroCar"},
    {23, "PureNewEnergyLargeCar" },
    {24, "MixedNewEnergyLargeCar"}
};
static_assert(std::size(kPlateKinds) == 25 && CodesAreIndexes(kPlateKinds));

/// Codes of tagEM_VEHICLE_DATA_TYPE.
inline constexpr Keyword kVehicleDataTypes[] = {
    {0, ""        },
    {1, "RealTime"},
    {2, "History" }
};
static_assert(std::size(kVehicleDataTypes) == 3 && CodesAreIndexes(kVehicleDataTypes));

inline constexpr Keyword kStrobeStates[] = {
    {1, "Close" },
    {2, "Auto"  },
    {3, "Manual"}
};
static_assert(std::size(kStrobeStates) == 3);

inline constexpr Keyword kSeatBeltStates[] = {
    {1, "WithSafeBelt"   },
    {2, "WithoutSafeBelt"}
};
static_assert(std::size(kSeatBeltStates) == 2);

}  // namespace jsonparser

#endif
