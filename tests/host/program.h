// The built lumohost, run as a process.
#pragma once

#include "host/test_folder.h"

#include <filesystem>
#include <string>
#include <vector>

struct ProgramRun {
    int status = -1; // exit status
    std::string output;
    std::string messages; // of the error stream
};

// Runs the program with arguments in ASCII and waits for its end.
ProgramRun RunLumohost(const std::vector<std::string>& arguments);

// A path as an argument.
std::string Argument(const std::filesystem::path& path);

// A file of the source tree.
std::filesystem::path SourceFile(const std::string& name);
