// What lumohost says of the samples, held against files in tests/host/golden. golden/make writes them anew.
#include "host/program.h"
#include "host/test_pictures.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace Host {
namespace {

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

std::vector<std::string> SampleNames()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SourceFile("samples")))
        if (const std::string name = entry.path().filename().string(); name != "make" && name.find(".md") == name.npos)
            names.push_back(name);
    std::ranges::sort(names);
    return names;
}

// A number that stands for the pixels (FNV-1a).
uint64_t Fingerprint(const std::vector<uint8_t>& bytes)
{
    uint64_t hash = 0xCBF29CE484222325u;
    for (const uint8_t byte : bytes)
        hash = (hash ^ byte) * 0x100000001B3u;
    return hash;
}

// "201 x 126 indexed 0123456789abcdef" for what opening the sample gives.
std::string Describe(const std::string& sample, const TestFolder& folder)
{
    const ProgramRun run =
        RunLumohost({"open", Argument(SourceFile("samples/" + sample)), "-o", Argument(folder / "p.png")});
    EXPECT_EQ(run.status, 0) << sample << ": " << run.messages;
    const auto picture = OpenPicture(folder / "p.png");
    const PictureInfo& info = picture->Info();
    std::vector<uint8_t> bytes = AllPixels(*picture);
    for (const auto* channel : {&info.palette.red, &info.palette.green, &info.palette.blue})
        bytes.insert(bytes.end(), channel->begin(), channel->end());
    std::ostringstream text;
    text << info.width << " x " << info.height << ' ' << KindOf(info) << ' ' << std::hex << Fingerprint(bytes);
    return text.str();
}

TEST(Golden, InfoOfTheSamples)
{
    std::string text;
    for (const std::string& name : SampleNames()) {
        const ProgramRun run = RunLumohost({"info", Argument(SourceFile("samples/" + name))});
        EXPECT_EQ(run.status, 0) << run.messages;
        text += name + run.output.substr(run.output.find(": version"));
    }
    ExpectGolden("info.txt", text);
}

TEST(Golden, PicturesOfTheSamples)
{
    const TestFolder folder;
    std::string text;
    for (const std::string& name : SampleNames())
        text += name + ": " + Describe(name, folder) + "\n";
    ExpectGolden("pictures.txt", text);
}

TEST(Golden, AnswersToTheSelectors)
{
    const ProgramRun run = RunLumohost({"selectors"});
    EXPECT_EQ(run.status, 0) << run.messages;
    ExpectGolden("selectors.txt", run.output);
}

TEST(Json, TellsTheSameAsTheTables)
{
    const ProgramRun info = RunLumohost({"info", "--json", Argument(SourceFile("samples/five-frames.ei"))});
    ASSERT_EQ(info.status, 0) << info.messages;
    const auto file = nlohmann::json::parse(info.output);
    ASSERT_EQ(file.at("frames").size(), 5u);
    EXPECT_EQ(file["frames"][2]["layout"], "8-bit indexed");
    EXPECT_EQ(file["frames"][4]["range"], (nlohmann::json{10.0, 1000.0}));

    const ProgramRun selectors = RunLumohost({"selectors", "--json"});
    const auto answers = nlohmann::json::parse(selectors.output);
    ASSERT_EQ(answers.size(), 43u);
    EXPECT_EQ(answers[18].at("result"), -30501) << "filter file";
}

// Raw and packed samples are of the same pictures.
TEST(Samples, AreTheSameRawAndPacked)
{
    std::istringstream lines(std::string(
        std::istreambuf_iterator<char>(std::ifstream(SourceFile("tests/host/golden/pictures.txt")).rdbuf()), {}));
    std::map<std::string, std::string> pictures;
    for (std::string line; std::getline(lines, line);)
        pictures[line.substr(0, line.find(':'))] = line.substr(line.find(':'));
    int pairs = 0;
    for (const auto& [name, picture] : pictures)
        if (const auto packed = pictures.find(name + "z"); packed != pictures.end()) {
            EXPECT_EQ(picture, packed->second) << name;
            ++pairs;
        }
    EXPECT_EQ(pairs, 9);
}

} // namespace
} // namespace Host
