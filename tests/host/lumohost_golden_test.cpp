// What lumohost says of the samples, held against files in tests/host/golden. golden/make writes
// them anew.
#include "host/program.h"
#include "host/test_pictures.h"

#include <nlohmann/json.hpp>

namespace Host {
namespace {

using Golden = LumohostTest;

// Compares with the expected file, or replaces it when the tests run in order to make it.
void ExpectGolden(const std::string& name, const std::string& text)
{
    const std::filesystem::path path = SourceFile("tests/host/golden/" + name);
    if (std::getenv("SIDECAR_REMAKE_GOLDEN"))
        std::ofstream(path) << text;
    std::ostringstream expected;
    expected << std::ifstream(path).rdbuf();
    EXPECT_EQ(text, expected.str()) << "If that is right now, run tests/host/golden/make.";
}

// The samples as arguments, by name.
std::map<std::string, std::string> Samples()
{
    std::map<std::string, std::string> samples;
    for (const auto& entry : std::filesystem::directory_iterator(SourceFile("samples")))
        if (const std::string name = entry.path().filename().string();
            name != "make" && name.find(".md") == name.npos)
            samples[name] = Argument(entry.path());
    return samples;
}

// "201 x 126 indexed 0123456789abcdef": the number stands for the pixels (FNV-1a).
std::string Describe(PictureSource& picture)
{
    const PictureInfo& info = picture.Info();
    Bytes bytes = AllPixels(picture);
    for (const auto* channel : {&info.palette.red, &info.palette.green, &info.palette.blue})
        bytes.insert(bytes.end(), channel->begin(), channel->end());
    uint64_t hash = 0xCBF29CE484222325u;
    for (const uint8_t byte : bytes)
        hash = (hash ^ byte) * 0x100000001B3u;
    std::ostringstream text;
    text << info.width << " x " << info.height << ' ' << KindOf(info) << ' ' << std::hex << hash;
    return text.str();
}

TEST_F(Golden, InfoOfTheSamples)
{
    std::string text;
    for (const auto& [name, path] : Samples()) {
        const std::string info = RunLumohost({"info", path}).output;
        text += name + info.substr(info.find(": version"));
    }
    ExpectGolden("info.txt", text);
}

TEST_F(Golden, PicturesOfTheSamples)
{
    std::string text;
    std::map<std::string, std::string> pictures;
    int pairs = 0;
    for (const auto& [name, path] : Samples()) {
        RunLumohost({"open", path, "-o", Path("p.png")});
        const std::string& picture = pictures[name] = Describe(*OpenPicture(fFolder / "p.png"));
        text += name + ": " + picture + "\n";
        if (const auto raw = pictures.find(name.substr(0, name.size() - 1));
            raw != pictures.end()) {
            EXPECT_EQ(picture, raw->second) << name << " is the same packed";
            ++pairs;
        }
    }
    EXPECT_EQ(pairs, 9);
    ExpectGolden("pictures.txt", text);
}

TEST_F(Golden, AnswersToTheSelectors)
{
    ExpectGolden("selectors.txt", RunLumohost({"selectors"}).output);
}

TEST_F(Golden, JsonTellsTheSameAsTheTables)
{
    const auto file =
        nlohmann::json::parse(RunLumohost({"info", "--json", Samples()["five-frames.ei"]}).output);
    ASSERT_EQ(file.at("frames").size(), 5u);
    EXPECT_EQ(file["frames"][2]["layout"], "8-bit indexed");
    EXPECT_EQ(file["frames"][4]["range"], (nlohmann::json{10.0, 1000.0}));
    const auto answers = nlohmann::json::parse(RunLumohost({"selectors", "--json"}).output);
    ASSERT_EQ(answers.size(), 43u);
    EXPECT_EQ(answers[18].at("result"), -30501) << "filter file";
}

} // namespace
} // namespace Host
