// Variables, their chain and their order, and the records that describe them.
#include "layout/language/expression_scope.h"
#include "layout/language/vex_properties.h"
#include "layout/recording_generator.h"
#include "layout/vocabulary/enumerations.h"
#include "layout/vocabulary/keywords.h"
#include "support/testing.h"

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
    EXPECT_EQ(LogicErrorOf([&] { scope.GetIntVariable("number", nullptr); }),
              "Warning! (value != NULL)");
    EXPECT_EQ(LogicErrorOf([&] { scope.GetFourCharVariable("unknown", nullptr); }),
              "Warning! (value != NULL)");
}

TEST(Scopes, ListTheirVariablesByBucket)
{
    // "A" to "C" lie in the buckets 10 to 12, "0A" and "00A" again in that of "A".
    for (const int more : {0, 200}) { // few and many variables are kept in different ways
        SCOPED_TRACE(more);
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
        for (const CVexVariableProperty* entry = list.First(); entry != nullptr;
             entry = list.Next(entry))
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

TEST(Properties, GuardTheirTypes)
{
    CVexVariableProperty property;
    EXPECT_EQ(property.Name(), nullptr);
    EXPECT_THROW(property.Integer(), std::range_error);
    property.SetInteger(5);
    EXPECT_EQ(property.Integer(), 5);
    EXPECT_THROW(property.Text(), std::range_error);
    property.SetText("five");
    EXPECT_THROW(property.Integer(), std::range_error);
    property.ClearValue();
    EXPECT_EQ(property.Type(), CVexProperty::kType_Unknown);
    EXPECT_THROW(property.Text(), std::range_error);
}

TEST(Properties, AreCopiedWhole)
{
    CVexFunctionProperty function;
    function.SetName("dim");
    function.SetDescription("the excess of one number over another");
    CVexVariablePropertyList parameters;
    parameters.AddInteger("a", 0).SetTakesValue(true);
    function.SetParameters(parameters);
    const std::unique_ptr<CVexProperty> copy = function.Clone();
    function.ClearParameters();
    function.ClearName();
    const auto& same = dynamic_cast<const CVexFunctionProperty&>(*copy);
    EXPECT_EQ(*same.Name(), "dim");
    EXPECT_EQ(same.Parameters().At(0).TakesValue(), true);
    CVexVariableProperty other;
    other.Assign(*copy);
    EXPECT_EQ(*other.Name(), "dim");
}

TEST(PropertyLists, NumberTheirEntries)
{
    CVexVariablePropertyList list;
    list.AddInteger("a", 1);
    list.AddText("c", "3");
    CVexVariableProperty b;
    b.SetName("b");
    list.Insert(1, b);
    std::string names;
    for (const CVexVariableProperty* entry = list.Next(nullptr); entry != nullptr;
         entry = list.Next(entry))
        names += *entry->Name() + std::to_string(entry->Id());
    EXPECT_EQ(names, "a0b1c2") << "names with their ids";
    list.Remove(0);
    EXPECT_EQ(list.At(1).Id(), 1);
    EXPECT_THROW(list.At(2), std::range_error);
    EXPECT_THROW(list.Remove(2), std::range_error);
    EXPECT_THROW(list.AddArray(nullptr, 1), std::range_error);
}

TEST(Enumerations, AreFoundByName)
{
    EXPECT_EQ(*VexEnumeration("vertical").At(1).Name(), "align_top");
    EXPECT_EQ(VexEnumeration("vertical").At(1).Integer(), 4);
    EXPECT_EQ(VexEnumeration("placement").At(2).Type(), CVexProperty::kType_Enumerated);
    EXPECT_THAT([] { VexEnumeration("colour"); },
                testing::ThrowsMessage<std::range_error>("Enum name not found."));
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
    EXPECT_EQ(constants.size(), 15U + 325U);
}

} // namespace
