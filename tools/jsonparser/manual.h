// The manual page.
#ifndef TOOLS_JSONPARSER_MANUAL_H
#define TOOLS_JSONPARSER_MANUAL_H

#include <string>

#include "description.h"

namespace tool {

/// The page in the mdoc language, for section 1 of the manual.
std::string ManualPage(const CommandDescription& tool);

}  // namespace tool

#endif
