#include "view/task_stack.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

using namespace Kesto;

namespace {

// Appends its letter to a text and takes it off again.
class Append : public CTask {
public:
    Append(std::string& text, char letter, bool named = true) : fText(text), fLetter(letter), fNamed(named) {}
    ~Append() override { gDeleted += fLetter; }

    bool GetName(CText& name) const override
    {
        if (fNamed)
            name = std::string(1, fLetter);
        return fNamed;
    }
    void DoDo() override { fText += fLetter; }
    void DoUndo() override
    {
        if (fBefore)
            fBefore();
        fText.pop_back();
    }

    static inline std::string gDeleted;
    std::function<void()> fBefore;

private:
    std::string& fText;
    char fLetter;
    bool fNamed;
};

class HundredTasks : public CTaskStack {
public:
    bool GetLimit(std::uint32_t& limit) const override
    {
        limit = fLimit;
        return fLimited;
    }

    std::uint32_t fLimit = 100;
    bool fLimited = true;
};

std::string UndoName(const CTaskStack& stack)
{
    CText name;
    EXPECT_EQ(stack.GetUndoName(name), stack.CanUndo());
    return name.CStr();
}

std::string RedoName(const CTaskStack& stack)
{
    CText name;
    EXPECT_EQ(stack.GetRedoName(name), stack.CanRedo());
    return name.CStr();
}

class TasksTest : public testing::Test {
protected:
    TasksTest() { Append::gDeleted.clear(); }

    Append& Do(CTaskStack& tasks, char letter, bool named = true)
    {
        auto task = std::make_unique<Append>(text, letter, named);
        Append& kept = *task;
        tasks.Do(std::move(task));
        return kept;
    }

    std::string text;
    HundredTasks stack;
};

TEST_F(TasksTest, TheOneStepStackTogglesItsStep)
{
    CTaskStack one;
    EXPECT_EQ(UndoName(one), "Cannot Undo");
    EXPECT_EQ(RedoName(one), "Cannot Redo");
    Do(one, 'a');
    Do(one, 'b');
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(Append::gDeleted, "a");
    EXPECT_EQ(UndoName(one), "Undo b");
    for (const char* const expected : {"a", "ab", "a"}) {
        EXPECT_EQ(one.IsToggleUndo(), text == "ab");
        one.Toggle();
        EXPECT_EQ(text, expected);
    }
    EXPECT_EQ(RedoName(one), "Redo b");
    one.Undo();
    EXPECT_EQ(text, "a");
    Do(one, 'c', false);
    EXPECT_EQ(UndoName(one), "Undo");
    one.Undo();
    EXPECT_EQ(RedoName(one), "Redo");
}

TEST_F(TasksTest, TrimmingTakesWhatCouldBeRedoneFirstAndTheOldestFirst)
{
    for (char letter = 1; letter <= 100; ++letter)
        Do(stack, letter);
    for (int i = 0; i < 3; ++i)
        stack.Undo();
    EXPECT_EQ(Append::gDeleted, "");
    Do(stack, '\x7F');
    EXPECT_EQ(text.size(), 98U);
    EXPECT_EQ(Append::gDeleted.size(), 3U);

    stack.Undo(); // 97 and 1
    stack.fLimited = false;
    stack.fLimit = 96;
    stack.Do(nullptr);
    EXPECT_EQ(Append::gDeleted.size(), 3U);
    stack.fLimited = true;
    stack.Do(nullptr);
    EXPECT_EQ(Append::gDeleted.substr(3), "\x7F\x01");
    stack.fLimit = 0;
    stack.Trim();
    EXPECT_EQ(Append::gDeleted.size(), 100U);
    EXPECT_TRUE(stack.CanUndo());
    stack.ClearAll();
    EXPECT_FALSE(stack.CanUndo());
}

TEST_F(TasksTest, WorkThatThrowsLeavesTheTaskWhereItWas)
{
    Append& task = Do(stack, 'a');
    task.fBefore = [] { throw std::runtime_error("no"); };
    EXPECT_THROW(stack.Undo(), std::runtime_error);
    EXPECT_TRUE(task.IsDone());
    EXPECT_TRUE(stack.CanUndo());
    task.fBefore = nullptr;
    stack.Undo();
    EXPECT_TRUE(task.IsUndone());
    EXPECT_EQ(RedoName(stack), "Redo a");
}

TEST_F(TasksTest, ATaskMayEmptyItsStackWhileItWorks)
{
    Do(stack, 'a');
    Do(stack, 'b').fBefore = [this] {
        stack.Undo(); // waits for nobody: it does nothing
        stack.ClearAll();
        EXPECT_EQ(Append::gDeleted, "a");
    };
    stack.Undo();
    EXPECT_EQ(text, "a");
    EXPECT_EQ(Append::gDeleted, "ab");
    EXPECT_FALSE(stack.CanUndo() || stack.CanRedo());
    Do(stack, 'c');
    stack.Undo();
    EXPECT_TRUE(stack.CanRedo());
}

} // namespace
