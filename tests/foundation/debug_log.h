// Looks into the debug log, which all processes of the machine share: another may start it anew at any time.
#pragma once

#include "foundation/debug_report.h"

#include <filesystem>
#include <fstream>
#include <string>

inline bool LogHolds(const std::string& line)
{
    std::ifstream log(Kesto::kDebugLogPath);
    for (std::string read; std::getline(log, read);)
        if (read == line)
            return true;
    return false;
}

// Whether `report` brings the log the line, in one of a few attempts.
template <class Report>
bool LogGets(const std::string& line, Report report)
{
    std::error_code ignored; // the folder is missing on a bare Windows
    std::filesystem::create_directory(std::filesystem::path(Kesto::kDebugLogPath).parent_path(), ignored);
    for (int attempt = 0; attempt < 20; ++attempt) {
        report();
        if (LogHolds(line))
            return true;
    }
    return false;
}
