// Sexes, certificates, categories and face features of a person.
#ifndef VKPROTOCOLSTACK_FACE_PERSON_KEYWORDS_H
#define VKPROTOCOLSTACK_FACE_PERSON_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kSexes[] = {
    {1, "Male"  },
    {2, "Female"},
};
static_assert(std::size(kSexes) == 2);

inline constexpr Keyword kCertificateTypes[] = {
    {1, "IC"      },
    {2, "Passport"},
};
static_assert(std::size(kCertificateTypes) == 2);

inline constexpr Keyword kPersonTypes[] = {
    {1, "Normal"   },
    {2, "Suspicion"},
    {3, "Thief"    },
    {4, "VIP"      },
    {5, "FateCheck"},
    {6, "Staff"    },
};
static_assert(std::size(kPersonTypes) == 6);

/// Features of a face. Emotions are looked up in all of them: glasses count as an emotion.
inline constexpr Keyword kFeatureTypes[] = {
    {0,  ""           },
    {1,  "WearGlasses"},
    {2,  "Smile"      },
    {3,  "Anger"      },
    {4,  "Sadness"    },
    {5,  "Disgust"    },
    {6,  "Fear"       },
    {7,  "Surprise"   },
    {8,  "Neutral"    },
    {9,  "Laugh"      },
    {10, "NoGlasses"  },
    {11, "Happy"      },
    {12, "Confused"   },
    {13, "Scream"     },
    {14, "SunGlasses" },
};
static_assert(std::size(kFeatureTypes) == 15 && CodesAreIndexes(kFeatureTypes));

inline constexpr Keyword kGlassesTypes[] = {
    {0, ""          },
    {1, "SunGlasses"},
    {2, "Glasses"   },
};
static_assert(std::size(kGlassesTypes) == 3 && CodesAreIndexes(kGlassesTypes));

}  // namespace jsonparser

#endif
