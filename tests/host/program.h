// The built lumohost, run as a process.
#pragma once

#include "support/temporary_folder.h"
#include "support/testing.h"

// A path as an argument.
std::string Argument(const std::filesystem::path& path);

// A file of the source tree.
std::filesystem::path SourceFile(const std::string& name);

class LumohostTest : public testing::Test {
protected:
    struct Run {
        int status = -1; // exit status
        std::string output;
        std::string messages; // of the error stream
    };
    // Runs the program with arguments in ASCII, waits for its end and expects its status.
    Run RunLumohost(const std::vector<std::string>& arguments, int status = 0) const;

    // Expects that the run fails with the status and says each of the words, and that it leaves no
    // file behind.
    void ExpectFailure(int status, const std::vector<std::string>& arguments,
                       const std::vector<std::string>& words) const;

    std::string Path(const char* name) const { return Argument(fFolder / name); }

    TemporaryFolder fFolder;
};
