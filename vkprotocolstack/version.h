// The version of the headers. The build reads its own from here.
#ifndef VKPROTOCOLSTACK_VERSION_H
#define VKPROTOCOLSTACK_VERSION_H

#define JSONPARSER_VERSION_MAJOR 0  ///< while 0, a minor version may break what was built against another
#define JSONPARSER_VERSION_MINOR 1  ///< goes up with what is added
#define JSONPARSER_VERSION_PATCH 0  ///< goes up with what is mended

/// The version as a text.
#define JSONPARSER_VERSION "0.1.0"

/// The version as a number to compare with: 10203 is 1.2.3.
#define JSONPARSER_VERSION_NUMBER \
    (JSONPARSER_VERSION_MAJOR * 10000 + JSONPARSER_VERSION_MINOR * 100 + JSONPARSER_VERSION_PATCH)

#endif
