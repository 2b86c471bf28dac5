// One small file for each defect that the reader refuses at its start.
#pragma once

#include "support/ei_file.h"

namespace Testing {

struct BadFile {
    std::string name;
    Bytes bytes;
    const char* alert = ""; // what an interactive session shows
};

std::vector<BadFile> BadFiles();

// A sound frame of 2 by 1 pixels.
EIFrame SmallFrame(const EILayout& layout);

} // namespace Testing
