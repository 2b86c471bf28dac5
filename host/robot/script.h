// A robot's script: what it does to windows and what it expects of them, one action a line.
//
//   click VIEW [left|right|middle] [xN] [shift] [control] [alt]
//   press VIEW · move VIEW · release
//   wheel VIEW DX DY            notches to the right and upward
//   type TEXT · paste TEXT      the rest of the line
//   key NAME [shift] [control] [alt]
//   hold shift|control|alt · let-go shift|control|alt
//   focus VIEW
//   resize W H · scale N · theme N · close
//   place LEFT TOP              of the content, in pixels of the desktop
//   monitors WxH+LEFT+TOP ...   the desktop's, the primary one first
//   wait SECONDS
//   shot FILE.png · describe FILE.json
//   expect VIEW KEY VALUE       the value is the rest of the line; in quotes it is a JSON text
//   expect-window open|closed|TITLE
//   expect-cursor SHAPE
//
// VIEW is an id, or X,Y in units of the window. A word that begins with # begins a comment, but not
// in the rest of a line that is typed, pasted or a title.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Host {

enum class Verb {
    kClick,
    kPress,
    kMove,
    kRelease,
    kWheel,
    kType,
    kPaste,
    kKey,
    kHold,
    kLetGo,
    kFocus,
    kResize,
    kScale,
    kTheme,
    kClose,
    kPlace,
    kMonitors,
    kWait,
    kShot,
    kDescribe,
    kExpect,
    kExpectWindow,
    kExpectCursor,
};

struct ScriptPoint {
    double x = 0;
    double y = 0;
};

// Which view is meant: the one of the id, or the one at the point if there is a point.
struct ViewName {
    std::string text; // as written in the script
    std::optional<ScriptPoint> point;
};

// Of a monitor, in pixels of the desktop.
struct ScriptRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend bool operator==(const ScriptRect&, const ScriptRect&) = default;
};

enum class MouseButton { kLeft, kRight, kMiddle };

// Fields that a verb doesn't need stay as they are.
struct Action {
    Verb verb = Verb::kWait;
    int line = 0; // 0: of no script, but asked for besides
    ViewName view;
    MouseButton button = MouseButton::kLeft;
    int count = 1;                        // of clicks
    std::uint32_t key = 0;                // its number
    std::vector<std::uint32_t> modifiers; // the numbers of keys that are held
    ScriptPoint numbers;                  // two numbers, or one as x
    std::vector<ScriptRect> monitors;     // the primary one first
    std::string property;                 // which key of a description is expected
    std::string text; // the rest of the line, or a file's name; of kDescribe - for the output
};

struct Script {
    std::string name; // for messages
    std::vector<Action> actions;
};

// What is wrong with a script: its name, line and column, what was found and what would be right.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The path that a name in UTF-8 means, as scripts have them on every system.
std::filesystem::path FileOf(const std::string& name);

// Throws ScriptError for the first mistake.
Script ReadScript(std::string_view text, const std::string& name);

// The same from a file, named in UTF-8, "-" for the standard input. A file that can't be read is a
// mistake too.
Script LoadScript(const std::string& file);

} // namespace Host
