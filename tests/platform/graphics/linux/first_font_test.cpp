// The first fonts of programs, each in a process of its own: this one never asks for a font, so
// that each child is at its beginning.
#include "platform/graphics/linux/font_file.h"

#include "support/temporary_folder.h"
#include "support/testing.h"

#include <cstdlib>
#include <dlfcn.h>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace Platform {
namespace {

namespace fs = std::filesystem;

// What a new process says.
std::string Ask(const std::function<std::string()>& question)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const std::string answer = question();
        _exit(write(ends[1], answer.data(), answer.size()) < 0);
    }
    close(ends[1]);
    std::string answer(4096, '\0');
    const ssize_t length = read(ends[0], answer.data(), answer.size());
    answer.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return answer;
}

// The name of the file that has a face, and by whom it was found.
std::string Find(const char* face)
{
    return Ask([face] {
        const auto file = FindPlainFontFile({face, 11});
        const bool isAsked = dlopen("libfontconfig.so.1", RTLD_LAZY | RTLD_NOLOAD) != nullptr;
        return (file ? fs::path(file->path).filename().string() : "none") +
               (isAsked ? " fontconfig" : " cache");
    });
}

std::string Configuration(const fs::path& fonts, const std::string& family)
{
    return "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>" +
           fonts.string() +
           "</dir><match target=\"pattern\"><edit name=\"family\" mode=\"assign\">" + "<string>" +
           family + "</string></edit></match><match target=\"pattern\">" +
           "<edit name=\"hintstyle\"><const>hintslight</const></edit></match></fontconfig>";
}

TEST(FirstFont, IsWhatFontconfigSaysNow)
{
    const TemporaryFolder folder;
    const fs::path installed = "/usr/share/fonts/truetype/dejavu";
    fs::create_directory(folder / "fonts");
    fs::copy(installed / "DejaVuSans.ttf", folder / "fonts");
    folder.Put("fonts.conf", Configuration(folder / "fonts", "DejaVu Serif"));
    setenv("FONTCONFIG_FILE", (folder / "fonts.conf").c_str(), 1);
    setenv("XDG_CACHE_HOME", (folder / "cache").c_str(), 1);
    usleep(200'000); // what is newer than that counts as changed while it is read

    EXPECT_EQ(Find("Tahoma"), "DejaVuSans.ttf fontconfig");
    EXPECT_EQ(Find("Tahoma"), "DejaVuSans.ttf cache");
    EXPECT_EQ(Find("Arial"), "DejaVuSans.ttf fontconfig") << "another font";
    EXPECT_EQ(Find("Tahoma"), "DejaVuSans.ttf cache") << "beside it";

    fs::copy(installed / "DejaVuSerif.ttf", folder / "fonts");
    EXPECT_EQ(Find("Tahoma"), "DejaVuSerif.ttf fontconfig") << "a font installed";
    usleep(200'000);
    EXPECT_EQ(Find("Tahoma"), "DejaVuSerif.ttf fontconfig");
    EXPECT_EQ(Find("Tahoma"), "DejaVuSerif.ttf cache");
    folder.Put("fonts.conf", Configuration(folder / "fonts", "DejaVu Sans"));
    EXPECT_EQ(Find("Tahoma"), "DejaVuSans.ttf fontconfig") << "another configuration";
}

} // namespace
} // namespace Platform
