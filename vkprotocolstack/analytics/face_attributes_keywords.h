// Words of face attributes, which riders of non-motor vehicles share.
#ifndef VKPROTOCOLSTACK_ANALYTICS_FACE_ATTRIBUTES_KEYWORDS_H
#define VKPROTOCOLSTACK_ANALYTICS_FACE_ATTRIBUTES_KEYWORDS_H

#include "vkprotocolstack/wire/keywords.h"

namespace jsonparser {

inline constexpr Keyword kFaceSexes[] = {
    {0, ""      },
    {1, "Male"  },
    {2, "Female"}
};
static_assert(std::size(kFaceSexes) == 3 && CodesAreIndexes(kFaceSexes));

inline constexpr Keyword kFaceEmotions[] = {
    {0,  ""        },
    {1,  "Normal"  },
    {2,  "Smile"   },
    {3,  "Anger"   },
    {4,  "Sadness" },
    {5,  "Disgust" },
    {6,  "Fear"    },
    {7,  "Surprise"},
    {8,  "Neutral" },
    {9,  "Laugh"   },
    {10, "Happy"   },
    {11, "Confused"},
    {12, "Scream"  }
};
static_assert(std::size(kFaceEmotions) == 13 && CodesAreIndexes(kFaceEmotions));

}  // namespace jsonparser

#endif
