#include "messages.h"

#include "failure.h"

#include <algorithm>
#include <array>

namespace Host {
namespace {

constexpr auto kResults = std::to_array<ResultText>({
    {kHostNoError, "Success.", ""},
    {kHostFailed, "The module failed without a code of its own.",
     "Run the command with --verbose to see where."},
    {kHostPixelLength, "The pixels have a length that the format can't hold.",
     "Save the picture as grey, palette, RGB or RGBA with 8 bits a channel."},
    {kHostReadError, "The data could not be read.",
     "Check the disk or the connection and try again."},
    {kHostWriteError, "The data could not be written.",
     "Check the disk or the connection and try again."},
    {kHostOpenError, "The requested read or write permission is not allowed.",
     "Check that the name is a file, not a folder, and that you may read or write it."},
    {kHostDiskFull, "The disk is full.",
     "Free some space or write to another disk; the old file is untouched."},
    {kHostIoError, "A file system error has occurred.", "Check the disk and try again."},
    {kHostEndOfFile, "The end of the data was prematurely reached.",
     "The file is cut off; fetch it again from where it came."},
    {kHostFileNotFound, "The file or directory could not be found.",
     "Check the spelling of the name and its folder."},
    {kHostFileLocked, "The file is locked.", "Close the program that uses the file and try again."},
    {kHostVolumeLocked, "The disk volume is locked.", "Write to a disk that allows it."},
    {kHostBadParameter, "There is an error in the parameter list.",
     "Host and module disagree; `lumohost selectors` shows what the module answers."},
    {kHostMemoryFull, "There is not enough memory.",
     "Give the module more with --memory-limit, or close other programs."},
    {kHostNilHandle, "An attempt was made to use a NULL handle.",
     "This is a fault of the module; please report it."},
    {kHostMemoryFreed, "An attempt was made to operate on a free memory block.",
     "This is a fault of the module; please report it."},
    {kHostUserCanceled, "The operation was canceled.",
     "Nothing was written; run the command again to start over."},
    {kHostBadMode,
     "The format can't serve this request: the colour mode or the frame number is out of its "
     "range.",
     "See `lumohost info` for the frames, and save grey, palette, RGB or RGBA pictures."},
    {kHostCannotRead, "The file can't be opened or read, or isn't in the format.",
     "See what `lumohost info` finds in the file."},
    {kHostFilterFileA, "The module answers for the file itself.", ""},
    {kHostFilterFileB, "The module answers for the file itself.", ""},
    {kHostMissingSuite, "A suite that the module needs is missing or too old.",
     "Use a newer host."},
});

constexpr ResultText kUnknown{0, "An unknown host error has occurred.",
                              "Run the command with --verbose to see at which selector it came."};

} // namespace

const ResultText& DescribeResult(int16_t code)
{
    const auto found = std::ranges::find(kResults, code, &ResultText::code);
    return found == kResults.end() ? kUnknown : *found;
}

std::string ResultLine(int16_t code)
{
    return std::string(DescribeResult(code).text) + " (" + std::to_string(code) + ")";
}

Failure FailureOf(const std::string& what, int16_t code)
{
    return Failure(what + ": " + ResultLine(code), std::string(DescribeResult(code).advice), code);
}

void Require(int16_t code, const std::string& what)
{
    if (code != kHostNoError)
        throw FailureOf(what, code);
}

std::string TextOf(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace Host
