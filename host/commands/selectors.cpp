#include "commands/commands.h"

#include "driver/host_memory.h"
#include "driver/selector_names.h"
#include "electricimage/frame_encoder.h"
#include "failure.h"
#include "messages.h"

#include <cstdio>
#include <random>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

namespace Host {
namespace {

using Json = nlohmann::ordered_json;

constexpr int16_t kFirstSelector = -1;
constexpr int16_t kLastSelector = kFormatSelectorCount;

// A grey step wedge: the document that the selectors are tried on.
class Wedge final : public PictureSource {
public:
    Wedge()
    {
        fInfo.mode = PictureMode::kGrayscale;
        fInfo.width = 8;
        fInfo.height = 8;
        fInfo.planes = 1;
        fInfo.palette = Palette::Grays();
    }

    const PictureInfo& Info() const override { return fInfo; }
    const uint8_t* Row(int32_t) override { return fRow.data(); }

private:
    PictureInfo fInfo;
    std::array<uint8_t, 8> fRow = {0, 36, 73, 109, 146, 182, 219, 255};
};

// A folder with a small file in it, removed with the object.
class TrialFolder {
public:
    TrialFolder()
        : fPath(std::filesystem::temp_directory_path() /
                ("lumohost-" + std::to_string(std::random_device{}())))
    {
        std::filesystem::create_directory(fPath);
        Wedge wedge;
        FrameEncoder encoder(File(), 1);
        encoder.Append(wedge, {}, "wedge");
        encoder.Finish();
    }
    ~TrialFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(fPath, ignored);
    }
    TrialFolder(const TrialFolder&) = delete;
    TrialFolder& operator=(const TrialFolder&) = delete;

    std::filesystem::path File() const { return fPath / "wedge.img"; }

private:
    std::filesystem::path fPath;
};

struct Answer {
    int16_t selector;
    int16_t code;
    std::vector<std::string> leftovers;
    int32_t budget; // memoryBudget afterwards, bytes; -1: as it was
};

// Sends one selector to a fresh module and takes what it left down again.
Answer Ask(const PluginModule& module, int16_t selector, const std::filesystem::path& file,
           const CommonOptions& common)
{
    intptr_t data = 0;
    Answer answer = {selector, 0, {}, -1};
    {
        Operation operation(module, data, file, common.operation);
        HostFormatRecord& record = operation.Record();
        record.colorMode = kHostModeGrayscale;
        record.rowCount = record.columnCount = record.channelDepth = 8;
        record.planeCount = 1;
        const int32_t before = record.memoryBudget;
        if (selector == kFormatAbout) {
            HostAboutRecord about = {sizeof(HostAboutRecord), record.basicSuite};
            answer.code = module.Call(selector, &about, data);
        } else {
            answer.code = operation.Call(selector);
        }
        answer.leftovers = operation.Leftovers();
        answer.budget = record.memoryBudget == before ? -1 : record.memoryBudget;
        operation.Call(kFormatUnload);
    }
    // The next selector meets a module that keeps nothing of this one.
    ReleaseHandles();
    return answer;
}

std::string RemarkOf(const Answer& answer)
{
    std::string remark;
    if (answer.budget >= 0)
        remark = "asks for " + std::to_string(answer.budget) + " bytes";
    for (const std::string& line : answer.leftovers)
        remark += (remark.empty() ? "" : "; ") + line;
    return remark;
}

void PrintTable(const std::vector<Answer>& answers)
{
    std::printf("selector                 result  says\n");
    for (const Answer& answer : answers) {
        const std::string remark = RemarkOf(answer);
        std::printf("%3d  %-18s  %6d  %s%s%s\n", answer.selector, SelectorName(answer.selector),
                    answer.code, std::string(DescribeResult(answer.code).text).c_str(),
                    remark.empty() ? "" : " -- ", remark.c_str());
    }
}

void PrintJson(const std::vector<Answer>& answers)
{
    Json rows = Json::array();
    for (const Answer& answer : answers) {
        Json row = {{"selector", answer.selector},
                    {"name", SelectorName(answer.selector)},
                    {"result", answer.code},
                    {"text", std::string(DescribeResult(answer.code).text)},
                    {"leftBehind", answer.leftovers}};
        if (answer.budget >= 0)
            row["memoryBudget"] = answer.budget;
        rows.push_back(row);
    }
    std::printf("%s\n", rows.dump(2).c_str());
}

int RunSelectors(CommonOptions& common, bool json)
{
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    const PluginModule module(common.Module());
    const TrialFolder folder;
    std::vector<Answer> answers;
    for (int16_t selector = kFirstSelector; selector <= kLastSelector; ++selector)
        answers.push_back(Ask(module, selector, folder.File(), common));
    if (json)
        PrintJson(answers);
    else
        PrintTable(answers);
    return 0;
}

} // namespace

Command AddSelectors(CLI::App& subcommand, CommonOptions& common)
{
    auto json = std::make_shared<bool>(false);
    subcommand.add_flag("--json", *json, "The same as JSON, for programs");
    AddModuleOptions(subcommand, common);
    subcommand.footer("For authors of modules: each selector is sent alone to a module that knows "
                      "of none before, with a\n"
                      "record about a grey document of 8 x 8 pixels and its file. Continue and "
                      "finish therefore find no\n"
                      "session. What a selector leaves behind (an open file after a start) stands "
                      "behind its result.\n\n"
                      "Example:\n"
                      "  lumohost selectors --module ./mymodule.so");
    return [json, &common] { return RunSelectors(common, *json); };
}

} // namespace Host
