#include "host/program.h"

namespace {

constexpr bool kIsWindows = std::filesystem::path::preferred_separator == '\\';

// Under Wine the build's own paths are those of the system below, which is its drive Z.
std::filesystem::path Native(const std::string& path)
{
    return kIsWindows && path.front() == '/' ? "Z:" + path : path;
}

// A backslash before the closing mark would take it in.
std::string Quoted(const std::string& text)
{
    const bool ends = kIsWindows && text.ends_with('\\');
    return '"' + text + (ends ? "\\\"" : "\"");
}

std::string TextFile(const std::filesystem::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf(); // in text mode: line ends are the same everywhere
    return text.str();
}

} // namespace

std::string Argument(const std::filesystem::path& path)
{
    std::filesystem::path native = path;
    return native.make_preferred().string();
}

std::filesystem::path SourceFile(const std::string& name)
{
    return Native(SIDECAR_SOURCE_DIR) / name;
}

LumohostTest::Run LumohostTest::RunLumohost(const std::vector<std::string>& arguments,
                                            int status) const
{
    const TemporaryFolder folder;
    std::string command = Quoted(Argument(Native(LUMOHOST)));
    for (const std::string& argument : arguments)
        command += ' ' + Quoted(argument);
    command +=
        " >" + Quoted(Argument(folder / "output")) + " 2>" + Quoted(Argument(folder / "messages"));
    if (kIsWindows)
        command = Quoted(command); // the command processor takes one pair off
    const int ended = std::system(command.c_str());
    Run run{kIsWindows ? ended : ended >> 8 & 0xFF, TextFile(folder / "output"),
            TextFile(folder / "messages")};
    EXPECT_EQ(run.status, status) << command << '\n' << run.output << run.messages;
    return run;
}

void LumohostTest::ExpectFailure(int status, const std::vector<std::string>& arguments,
                                 const std::vector<std::string>& words) const
{
    const auto files = fFolder.Count();
    const std::string messages = RunLumohost(arguments, status).messages;
    for (const std::string& word : words)
        EXPECT_NE(messages.find(word), std::string::npos) << "\"" << word << "\" in: " << messages;
    EXPECT_EQ(fFolder.Count(), files) << messages;
}
