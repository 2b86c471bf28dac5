#include "layout/vex_properties.h"

#include <gmock/gmock.h>

#include <stdexcept>

using namespace Kesto;

namespace {

TEST(Properties, GuardTheirTypes)
{
    CVexVariableProperty property;
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
    for (const CVexVariableProperty* entry = list.Next(nullptr); entry != nullptr; entry = list.Next(entry))
        names += *entry->Name() + std::to_string(entry->Id());
    EXPECT_EQ(names, "a0b1c2");
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
    EXPECT_THAT([] { VexEnumeration("colour"); }, testing::ThrowsMessage<std::range_error>("Enum name not found."));
}

} // namespace
