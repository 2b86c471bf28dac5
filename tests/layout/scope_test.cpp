// Variables, their chain and their order.
#include "layout/expression_scope.h"
#include "layout/keywords.h"
#include "layout/recording_generator.h"
#include "layout/vex_properties.h"

#include <gtest/gtest.h>

#include <set>

using namespace Kesto;

namespace {

TEST(Names, HashAsNumbersOfBase63)
{
    EXPECT_EQ(HashName("0"), 0U);
    EXPECT_EQ(HashName("Az_"), (10U * 63 + 61) * 63 + 62);
    EXPECT_EQ(HashName("a.b"), (36U * 63 + 0) * 63 + 37);
    EXPECT_EQ(HashName("zzzzzzzz"), 1556774144U) << "modulo 2^32";
}

TEST(Scopes, FindTheNearestDefinition)
{
    CExpressionScope outer;
    CExpressionScope empty(&outer);
    CExpressionScope inner(&empty);
    outer.AddVariable("a", 1);
    outer.AddVariable("ab", "text");
    EXPECT_EQ(inner.FindVariable("a")->integer, 1);
    inner.AddVariable("a", 2);
    inner.AddVariable("a", 3);
    EXPECT_EQ(inner.FindVariable("a")->integer, 3);
    EXPECT_EQ(outer.FindVariable("a")->integer, 1);
    EXPECT_STREQ(inner.FindVariable("ab")->text, "text");
    EXPECT_EQ(inner.FindVariable("abc"), nullptr);
    outer.AddVariable("a.b", 4); // the two hash alike
    outer.AddVariable("a-b", 5);
    EXPECT_EQ(inner.FindVariable("a.b")->integer, 4);
    EXPECT_EQ(inner.FindVariable("a-b")->integer, 5);
}

TEST(Scopes, ReadByType)
{
    CExpressionScope scope;
    scope.AddVariable("number", 7);
    scope.AddVariable("code", "ab\x80"
                              "d");
    scope.AddVariable("text", "abc");
    std::int32_t integer = 0;
    bool truth = false;
    const char* text = nullptr;
    EXPECT_TRUE(scope.GetIntVariable("text", &integer));
    EXPECT_EQ(integer, VexUndefined);
    EXPECT_TRUE(scope.GetBoolVariable("text", &truth));
    EXPECT_TRUE(truth);
    EXPECT_TRUE(scope.GetStringVariable("number", &text));
    EXPECT_STREQ(text, "");
    EXPECT_TRUE(scope.GetFourCharVariable("code", &integer));
    EXPECT_EQ(integer, 0x61628064);
    EXPECT_TRUE(scope.GetFourCharVariable("number", &integer));
    EXPECT_EQ(integer, 7);
    EXPECT_FALSE(scope.GetIntVariable("unknown", &integer));
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(LogicErrorOf([&] { scope.GetIntVariable("number", nullptr); }), "Warning! (value != NULL)");
    EXPECT_EQ(LogicErrorOf([&] { scope.GetFourCharVariable("unknown", nullptr); }), "Warning! (value != NULL)");
}

TEST(Scopes, ListTheirVariablesByBucket)
{
    // "A" to "C" lie in the buckets 10 to 12, "0A" and "00A" again in that of "A".
    for (const int more : {0, 200}) { // few and many variables are kept in different ways
        CExpressionScope scope;
        scope.AddVariable("C", 3);
        scope.AddVariable("A", 1);
        scope.AddVariable("0A", "text");
        scope.AddVariable("B", {VexUndefined, ""});
        scope.AddVariable("00A", {0x61626364, "abcd"});
        for (int i = 0; i < more; ++i)
            scope.AddVariable("zz" + std::to_string(i), i);
        CVexVariablePropertyList list;
        scope.ListVariables(list);
        ASSERT_EQ(list.Count(), static_cast<std::size_t>(5 + more));
        std::vector<std::string> names;
        for (const CVexVariableProperty* entry = list.First(); entry != nullptr; entry = list.Next(entry))
            if (!entry->Name()->starts_with("zz"))
                names.push_back(*entry->Name() + ' ' + std::to_string(entry->Type()));
        EXPECT_EQ(names, (std::vector<std::string>{"00A 0", "0A 3", "A 1", "B 0", "C 1"}));
    }
}

TEST(Pools, OutliveTheirScopesAndAbandonWhatIsTooSmall)
{
    StringPool pool;
    const char* const first = pool.InternString(std::string(StringPool::kBlockSize - 1, 'a'));
    EXPECT_EQ(pool.BlockCount(), 1U);
    EXPECT_STREQ(pool.InternString(""), "");
    EXPECT_EQ(pool.BlockCount(), 2U);
    const char* text = nullptr;
    {
        CExpressionScope scope(nullptr, nullptr, &pool);
        scope.AddVariable("name", std::string(5000, 'x'));
        scope.GetStringVariable("name", &text);
    }
    EXPECT_EQ(pool.BlockCount(), 4U) << "one for the text alone";
    EXPECT_EQ(std::string(text), std::string(5000, 'x'));
    EXPECT_EQ(std::string(first).size(), StringPool::kBlockSize - 1);
}

TEST(Vocabulary, NamesEachWordOnce)
{
    std::set<std::string_view> constants;
    for (const auto table : {StandardConstants(), ClassConstants()})
        for (const VexConstant& constant : table)
            EXPECT_TRUE(constants.insert(constant.name.text).second) << constant.name.text;
    std::set<std::string_view> others;
    for (const VexPropertyKey& key : PropertyKeys())
        EXPECT_TRUE(others.insert(key.name).second) << key.name;
    for (const VexViewClass& viewClass : ViewClasses())
        EXPECT_TRUE(others.insert(viewClass.name).second) << viewClass.name;
    EXPECT_EQ(constants.size(), 15U + 325U);
}

} // namespace
