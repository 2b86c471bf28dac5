// Another run of this program, as a process of its own.
#pragma once

#include <string>
#include <vector>

namespace Host {

struct ChildEnd {
    int status = 0;       // its exit status; 128 and the signal's number when a signal ended it
    std::string messages; // all that it wrote to its error stream
};

// Runs this program with arguments in UTF-8 and waits for its end; what it writes to its output is
// dropped. Throws Failure when it can't be started. May be called on several threads at once.
ChildEnd RunThisProgram(const std::vector<std::string>& arguments);

} // namespace Host
