// The player of a script: in each turn that windows give it, it hands them at most one event, so
// that they have dealt with all of the former ones before the next.
//
// Views are looked for in the frontmost window first. The first expectation that fails ends the
// script; however it ends, the windows that are open then are dismissed, front to back.
#pragma once

#include "lumograph/view_info.h"
#include "lumograph/window_requests.h"
#include "robot/script.h"
#include "robot/stage.h"

#include <nlohmann/json.hpp>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Host {

struct PlayOutcome {
    enum Status { kPlayed = 0, kNotAsExpected = 1, kTrouble = 2 };
    Status status = kPlayed;
    std::string words; // what failed, with the script's name and line
};

class Player {
public:
    // The stage must outlive it.
    Player(Script script, Stage& stage);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // A turn: fills in the next event; false if there is none any more. The event's record is the
    // player's, until the next turn. Throws nothing.
    bool TakeTurn(HostInputEvent& event);

    // All has been played, and no window is open.
    bool IsOver() const { return fStep == Step::kOver; }
    const PlayOutcome& Outcome() const { return fOutcome; }

private:
    enum class Step { kLook, kAct, kOver };

    struct OpenWindow {
        void* handle;
        std::string title;
        double scale;
        nlohmann::ordered_json description; // null until it is asked for
    };
    struct Spot {
        void* window = nullptr;
        const nlohmann::ordered_json* view = nullptr; // null: no view is there
        std::int32_t x = 0;                           // pixels of the content
        std::int32_t y = 0;
    };
    struct Records;

    void Proceed();
    void DismissFront();
    void Fail(PlayOutcome::Status status, const std::string& words);

    void Act(const Action& action);
    void ActOnWindow(const Action& action);
    void Click(const Action& action);
    void Press(const Action& action, const Spot& spot, int count);
    void Wheel(const Action& action);
    void Wait(double seconds);
    void Focus(const Action& action);
    void WriteDescription(const std::string& path);
    void WriteShot(const std::string& path);
    void UseMonitors(const Action& action);
    void CompareMonitors(const std::vector<ScriptRect>& wanted);
    void CompareCursor(const std::string& wanted);
    void Expect(const Action& action);
    void ExpectWindow(const std::string& wanted);

    Spot Find(const ViewName& name);
    const nlohmann::ordered_json& DescriptionOf(OpenWindow& window);

    void Put(std::uint32_t message, void* window, std::uint64_t first = 0, std::int64_t second = 0);
    template <class Record>
    void PutRecord(std::uint32_t request, const Record& record, void* window = nullptr);
    void PutText(std::uint32_t request, const std::string& text, void* window = nullptr);
    void PutKeys(const std::vector<std::uint32_t>& keys, bool down);
    void PutMouse(std::uint32_t message, const Spot& spot, std::uint64_t first = 0);

    Script fScript;
    Stage& fStage;
    std::size_t fNext = 0; // action
    int fLine = 0;         // of the last one
    Step fStep = Step::kLook;
    std::deque<HostInputEvent> fEvents; // that the windows are to get
    std::unique_ptr<Records> fRecords;
    Spot fSpot;           // where the mouse is
    bool fIsHeld = false; // the left button, by `press`
    bool fWasPressed = false;
    double fSincePress = 0;            // seconds that were waited since
    std::function<void()> fTakeAnswer; // looks at what the last action asked of the windows
    int fDismissed = 0;
    PlayOutcome fOutcome;
};

} // namespace Host
