#include "layout/language/vex_properties.h"

#include <stdexcept>

namespace Kesto {

namespace {

template <class T>
const T* PartOrNull(const std::optional<T>& part)
{
    return part ? &*part : nullptr;
}

} // namespace

void CVexProperty::Assign(const CVexProperty& other)
{
    fId = other.fId;
    fName = other.fName;
    fType = other.fType;
    fDescription = other.fDescription;
}

std::int32_t CVexProperty::Id() const
{
    return fId;
}
void CVexProperty::SetId(std::int32_t id)
{
    fId = id;
}
void CVexProperty::ClearId()
{
    fId = kNoId;
}

const std::string* CVexProperty::Name() const
{
    return PartOrNull(fName);
}
void CVexProperty::SetName(std::string_view name)
{
    fName.emplace(name);
}
void CVexProperty::ClearName()
{
    fName.reset();
}

std::int32_t CVexProperty::Type() const
{
    return fType.value_or(kType_Unknown);
}
void CVexProperty::SetType(std::int32_t type)
{
    fType = type;
}
void CVexProperty::ClearType()
{
    fType.reset();
}

const std::string* CVexProperty::Description() const
{
    return PartOrNull(fDescription);
}
void CVexProperty::SetDescription(std::string_view description)
{
    fDescription.emplace(description);
}
void CVexProperty::ClearDescription()
{
    fDescription.reset();
}

std::unique_ptr<CVexProperty> CVexVariableProperty::Clone() const
{
    return std::make_unique<CVexVariableProperty>(*this);
}

void CVexVariableProperty::Assign(const CVexProperty& other)
{
    if (const auto* variable = dynamic_cast<const CVexVariableProperty*>(&other))
        Assign(*variable);
    else
        CVexProperty::Assign(other);
}

void CVexVariableProperty::Assign(const CVexVariableProperty& other)
{
    *this = other;
}

const std::string& CVexVariableProperty::Text() const
{
    if (Type() != kType_Text || !fText)
        throw std::range_error("The variable is not a text.");
    return *fText;
}

std::int32_t CVexVariableProperty::Integer() const
{
    if ((Type() != kType_Integer && Type() != kType_Enumerated) || !fInteger)
        throw std::range_error("The variable is not an integer.");
    return *fInteger;
}

void CVexVariableProperty::SetInteger(std::int32_t integer)
{
    if (Type() != kType_Enumerated)
        SetType(kType_Integer);
    fInteger = integer;
    fText.reset();
}

void CVexVariableProperty::SetText(std::string_view text)
{
    SetType(kType_Text);
    fText.emplace(text);
    fInteger.reset();
}

void CVexVariableProperty::ClearValue()
{
    ClearType();
    fInteger.reset();
    fText.reset();
}

std::optional<bool> CVexVariableProperty::TakesValue() const
{
    return fTakesValue;
}
void CVexVariableProperty::SetTakesValue(bool takes)
{
    fTakesValue = takes;
}
void CVexVariableProperty::ClearTakesValue()
{
    fTakesValue.reset();
}

std::optional<bool> CVexVariableProperty::TakesName() const
{
    return fTakesName;
}
void CVexVariableProperty::SetTakesName(bool takes)
{
    fTakesName = takes;
}
void CVexVariableProperty::ClearTakesName()
{
    fTakesName.reset();
}

std::unique_ptr<CVexPropertyList<CVexVariableProperty>> CVexVariablePropertyList::Clone() const
{
    return std::make_unique<CVexVariablePropertyList>(*this);
}

CVexVariableProperty& CVexVariablePropertyList::AddInteger(std::string_view name,
                                                           std::int32_t integer)
{
    CVexVariableProperty property;
    property.SetName(name);
    property.SetInteger(integer);
    return Add(property);
}

CVexVariableProperty& CVexVariablePropertyList::AddEnumerated(std::string_view name,
                                                              std::int32_t integer)
{
    CVexVariableProperty& property = AddInteger(name, integer);
    property.SetType(CVexProperty::kType_Enumerated);
    return property;
}

CVexVariableProperty& CVexVariablePropertyList::AddText(std::string_view name,
                                                        std::string_view text)
{
    CVexVariableProperty property;
    property.SetName(name);
    property.SetText(text);
    return Add(property);
}

std::unique_ptr<CVexProperty> CVexFunctionProperty::Clone() const
{
    return std::make_unique<CVexFunctionProperty>(*this);
}

void CVexFunctionProperty::Assign(const CVexProperty& other)
{
    if (const auto* function = dynamic_cast<const CVexFunctionProperty*>(&other))
        Assign(*function);
    else
        CVexProperty::Assign(other);
}

void CVexFunctionProperty::Assign(const CVexFunctionProperty& other)
{
    *this = other;
}

std::optional<bool> CVexFunctionProperty::Flag() const
{
    return fFlag;
}
void CVexFunctionProperty::SetFlag(bool flag)
{
    fFlag = flag;
}
void CVexFunctionProperty::ClearFlag()
{
    fFlag.reset();
}

const CVexVariablePropertyList& CVexFunctionProperty::Parameters() const
{
    return fParameters;
}
void CVexFunctionProperty::SetParameters(const CVexVariablePropertyList& parameters)
{
    fParameters = parameters;
}
void CVexFunctionProperty::ClearParameters()
{
    fParameters.Clear();
}

std::unique_ptr<CVexPropertyList<CVexFunctionProperty>> CVexFunctionPropertyList::Clone() const
{
    return std::make_unique<CVexFunctionPropertyList>(*this);
}

CVexFunctionProperty& CVexFunctionPropertyList::AddFunction(std::string_view name)
{
    CVexFunctionProperty property;
    property.SetName(name);
    return Add(property);
}

std::unique_ptr<CVexProperty> CVexViewTypeProperty::Clone() const
{
    return std::make_unique<CVexViewTypeProperty>(*this);
}

void CVexViewTypeProperty::Assign(const CVexProperty& other)
{
    if (const auto* viewType = dynamic_cast<const CVexViewTypeProperty*>(&other))
        Assign(*viewType);
    else
        CVexProperty::Assign(other);
}

void CVexViewTypeProperty::Assign(const CVexViewTypeProperty& other)
{
    *this = other;
}

const CVexVariablePropertyList& CVexViewTypeProperty::Properties() const
{
    return fProperties;
}
void CVexViewTypeProperty::SetProperties(const CVexVariablePropertyList& properties)
{
    fProperties = properties;
}
void CVexViewTypeProperty::ClearProperties()
{
    fProperties.Clear();
}

} // namespace Kesto
