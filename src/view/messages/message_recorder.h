// CMessageRecorder, which tells where messages went: one line for each that was sent, when its
// climb has ended.
//
//   CCommandMessage(Project/Dialog/OKButton) to CPushButton(Project/Dialog/OKButton): eaten by
//   PDialog(Project/Dialog)
//
// A line names the message's class and id, what it carries, whom it was sent to, and who ate it
// after how many levels up. What a handler sends itself is told before the line of its cause, two
// blanks further in. When it is off, it costs a test of one flag for each level.
#pragma once

#include <functional>
#include <string>

namespace Kesto {

class CMessage;
class CMessenger;

class CMessageRecorder {
public:
    using Sink = std::function<void(const std::string& line)>;

    // Hands each line to `sink` from now on, which replaces the former one. It sends no messages.
    static void Start(Sink sink);
    // Adds the lines to the file, each as soon as it is told. Throws CSystemError if it can't be
    // opened.
    static void StartFile(const char* path);
    static void Stop();

    // Calls `watch` with each messenger that is about to be asked, until it is replaced; null for
    // nobody. It sends no messages.
    using Watch = std::function<void(const CMessenger& asked, const CMessage& message)>;
    static void SetWatch(Watch watch);

    static bool IsOn() { return gIsOn; }

    // One level of a climb, for as long as the climb is at that level or above.
    class Step {
    public:
        Step(const CMessenger& at, const CMessage& message);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

        // Around the call of the handler of the level that this step is for.
        void Asks(const CMessenger& messenger);
        void Answered(bool eaten);

    private:
        std::string Outcome() const;

        static Step* gClimb; // first step of the climb under way, which leads to those that wait

        const CMessage* fMessage;
        Step* fFirst; // of the same climb; this one keeps the fields below
        Step* fCause = nullptr;
        std::string fLine;
        std::string fAsked; // the last
        int fLevels = 0;    // asked so far
        bool fAsking = false;
        bool fEaten = false;
    };

    // Takes the place of a step while the recorder is off.
    struct NoStep {
        NoStep(const CMessenger&, const CMessage&) {}
        void Asks(const CMessenger&) {}
        void Answered(bool) {}
    };

private:
    static inline bool gIsOn = false;
};

} // namespace Kesto
