#include "robot/golden_pictures.h"

#include "pictures/picture_files.h"

#include <cstdlib>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

const fs::path kKept =
    fs::path(SIDECAR_SOURCE_DIR) / "tests" / "robot" / "golden" / SIDECAR_GOLDEN_FILE;

// FNV-1a of the size and the colours.
std::uint64_t NumberOf(const fs::path& path)
{
    const auto picture = Host::OpenPicture(path);
    const Host::PictureInfo& info = picture->Info();
    std::uint64_t hash = 0xCBF29CE484222325U;
    const auto add = [&hash](std::uint64_t part) { hash = (hash ^ part) * 0x100000001B3U; };
    add(static_cast<std::uint64_t>(info.width));
    for (std::int32_t y = 0; y < info.height; ++y)
        for (std::size_t i = 0; i < info.RowBytes(); ++i)
            add(picture->Row(y)[i]);
    return hash;
}

} // namespace

PictureFolder::PictureFolder() : fBefore(fs::current_path())
{
    fs::current_path(fFolder.Path());
}

PictureFolder::~PictureFolder()
{
    std::error_code ignored;
    fs::current_path(fBefore, ignored);
}

std::string PictureFolder::LinesFor(const std::string& play) const
{
    std::set<fs::path> pictures;
    for (const auto& entry : fs::directory_iterator(fFolder.Path()))
        pictures.insert(entry.path());
    std::ostringstream lines;
    for (const fs::path& path : pictures)
        lines << play << ' ' << path.stem().string() << ' ' << std::hex << NumberOf(path) << '\n';
    return lines.str();
}

std::string KeptLines(const std::string& play, const std::string& lines)
{
    std::string kept;
    std::set<std::string> all;
    std::ifstream file(kKept);
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(play + ' '))
            kept += line + '\n';
        else
            all.insert(line + '\n');
    file.close();
    if (std::getenv("SIDECAR_REMAKE_GOLDEN") == nullptr)
        return kept;
    for (const auto& entry : fs::directory_iterator(fs::current_path()))
        fs::copy_file(entry.path(),
                      fs::temp_directory_path() / (play + '-' + entry.path().filename().string()),
                      fs::copy_options::overwrite_existing);
    std::istringstream taken(lines);
    for (std::string line; std::getline(taken, line);)
        all.insert(line + '\n');
    std::ofstream out(kKept, std::ios::binary);
    for (const std::string& line : all)
        out << line;
    return lines;
}
