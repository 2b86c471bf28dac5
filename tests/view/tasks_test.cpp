#include "support/testing.h"
#include "view/tasks/task_stack.h"

using namespace Kesto;

namespace {

struct HundredTasks : CTaskStack {
    bool GetLimit(std::uint32_t& limit) const override
    {
        limit = most;
        return limited;
    }

    std::uint32_t most = 100;
    bool limited = true;
};

class TasksTest : public testing::Test {
protected:
    // Appends its letter to the text and takes it off again.
    struct Append : CTask {
        Append(TasksTest& itsTest, char itsLetter) : test(itsTest), letter(itsLetter) {}
        ~Append() override { test.deleted += letter; }

        bool GetName(CText& name) const override
        {
            name = std::string(1, letter);
            return letter != '?';
        }
        void DoDo() override { test.text += letter; }
        void DoUndo() override
        {
            before();
            test.text.pop_back();
        }

        TasksTest& test;
        char letter;
        std::function<void()> before = [] {};
    };

    Append& Do(CTaskStack& tasks, char letter)
    {
        auto task = std::make_unique<Append>(*this, letter);
        Append& kept = *task;
        tasks.Do(std::move(task));
        return kept;
    }

    static std::string Names(const CTaskStack& tasks)
    {
        CText undo;
        CText redo;
        EXPECT_EQ(tasks.GetUndoName(undo), tasks.CanUndo());
        EXPECT_EQ(tasks.GetRedoName(redo), tasks.CanRedo());
        return std::string(undo.CStr()) + ", " + redo.CStr();
    }

    std::string text;
    std::string deleted;
    HundredTasks stack;
};

TEST_F(TasksTest, TheOneStepStackTogglesItsStep)
{
    CTaskStack one;
    EXPECT_EQ(Names(one), "Cannot Undo, Cannot Redo");
    Do(one, 'a');
    Do(one, 'b');
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(deleted, "a");
    EXPECT_EQ(Names(one), "Undo b, Cannot Redo");
    for (const char* const expected : {"a", "ab", "a"}) {
        SCOPED_TRACE(expected);
        EXPECT_EQ(one.IsToggleUndo(), text == "ab");
        one.Toggle();
        EXPECT_EQ(text, expected);
    }
    EXPECT_EQ(Names(one), "Cannot Undo, Redo b");
    one.Undo();
    EXPECT_EQ(text, "a");
    Do(one, '?');
    EXPECT_EQ(Names(one), "Undo, Cannot Redo") << "of one without a name";
    one.Undo();
    EXPECT_EQ(Names(one), "Cannot Undo, Redo");
}

TEST_F(TasksTest, TrimmingTakesWhatCouldBeRedoneFirstAndTheOldestFirst)
{
    for (char letter = 1; letter <= 100; ++letter)
        Do(stack, letter);
    for (int i = 0; i < 3; ++i)
        stack.Undo();
    EXPECT_EQ(deleted, "");
    Do(stack, '\x7F');
    EXPECT_EQ(text.size(), 98U);
    EXPECT_EQ(deleted.size(), 3U);

    stack.Undo(); // 97 and 1
    stack.limited = false;
    stack.most = 96;
    stack.Do(nullptr);
    EXPECT_EQ(deleted.size(), 3U);
    stack.limited = true;
    stack.Do(nullptr);
    EXPECT_EQ(deleted.substr(3), "\x7F\x01");
    stack.most = 0;
    stack.Trim();
    EXPECT_EQ(deleted.size(), 100U);
    EXPECT_TRUE(stack.CanUndo());
    stack.ClearAll();
    EXPECT_FALSE(stack.CanUndo());
}

TEST_F(TasksTest, WorkThatThrowsLeavesTheTaskWhereItWas)
{
    Append& task = Do(stack, 'a');
    task.before = [] { throw std::runtime_error("no"); };
    EXPECT_THROW(stack.Undo(), std::runtime_error);
    EXPECT_TRUE(task.IsDone());
    EXPECT_EQ(Names(stack), "Undo a, Cannot Redo");
    task.before = [] {};
    stack.Undo();
    EXPECT_TRUE(task.IsUndone());
    EXPECT_EQ(Names(stack), "Cannot Undo, Redo a");
}

TEST_F(TasksTest, ATaskMayEmptyItsStackWhileItWorks)
{
    Do(stack, 'a');
    Do(stack, 'b').before = [this] {
        stack.Undo(); // waits for nobody: it does nothing
        stack.ClearAll();
        EXPECT_EQ(deleted, "a");
    };
    stack.Undo();
    EXPECT_EQ(text, "a");
    EXPECT_EQ(deleted, "ab");
    EXPECT_FALSE(stack.CanUndo() || stack.CanRedo());
    Do(stack, 'c');
    stack.Undo();
    EXPECT_TRUE(stack.CanRedo());
}

} // namespace
