// What `lumohost open` was asked for, and the three ways in which it opens.
#pragma once

#include "commands/commands.h"
#include "commands/dialog_options.h"
#include "pictures/picture_files.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Host {

struct OpenOptions {
    std::vector<std::string> files;
    std::string output;
    std::optional<int64_t> frame;
    bool all = false;
    unsigned jobs = 0; // processes at once; 0: one for each processor
    PictureOptions picture;
    DialogOptions dialog;
};

// One picture of one file. Returns the exit status.
int OpenOne(const OpenOptions& options, CommonOptions& common);

// Every frame of one file, each chosen in the module's dialog; the output's name has "%d" in it, or
// "%04d", for the frame's number. Frames that fail don't stop the others.
int OpenAll(const OpenOptions& options, CommonOptions& common);

// A picture of each file in a folder, each opened in a process of its own. Files that fail don't
// stop the others.
int OpenMany(const OpenOptions& options, CommonOptions& common);

// The name of a frame's picture by a pattern. Throws Failure unless the pattern has exactly one
// place for the number.
std::string FrameName(const std::string& pattern, int64_t frame);

} // namespace Host
