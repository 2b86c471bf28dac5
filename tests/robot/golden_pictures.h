// The pictures that scripts take, held against the numbers that golden/ keeps for them: one for
// each system, whose texts differ by the rasteriser.
#pragma once

#include "support/temporary_folder.h"

#include <string>

// The working folder for as long as it lives: where a script's pictures go.
class PictureFolder {
public:
    PictureFolder();
    ~PictureFolder();
    PictureFolder(const PictureFolder&) = delete;
    PictureFolder& operator=(const PictureFolder&) = delete;

    // A line "PLAY PICTURE NUMBER" for each picture there, in the order of the alphabet.
    std::string LinesFor(const std::string& play) const;

private:
    TemporaryFolder fFolder;
    std::filesystem::path fBefore;
};

// The lines that are kept for a play. Where they are made anew they become `lines`, and the
// pictures go to the system's temporary folder, to be looked at.
std::string KeptLines(const std::string& play, const std::string& lines);
