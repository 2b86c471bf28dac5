// Records that describe what is in a scope: variables, functions, types of views.
//
// Every part of a record is optional. The order of the virtual operations is part of the interface.
#pragma once

#include "layout/language/vex_property_list.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Kesto {

class CVexProperty {
public:
    static constexpr std::int32_t kNoId = -1;
    static constexpr std::int32_t kType_Unknown = 0;
    static constexpr std::int32_t kType_Integer = 1;
    static constexpr std::int32_t kType_Enumerated = 2; // an integer, one of an enumeration
    static constexpr std::int32_t kType_Text = 3;

    CVexProperty() = default;
    CVexProperty(const CVexProperty&) = default;
    CVexProperty& operator=(const CVexProperty&) = default;
    virtual ~CVexProperty() = default;

    virtual std::unique_ptr<CVexProperty> Clone() const = 0;

    // Takes over all parts that the two have in common.
    virtual void Assign(const CVexProperty& other);

    // The index in the list that holds the property, or kNoId.
    virtual std::int32_t Id() const;
    virtual void SetId(std::int32_t id);
    virtual void ClearId();

    // Null while the part isn't set; valid until the part changes. Likewise below.
    virtual const std::string* Name() const;
    virtual void SetName(std::string_view name);
    virtual void ClearName();

    // kType_Unknown while the part isn't set.
    virtual std::int32_t Type() const;
    virtual void SetType(std::int32_t type);
    virtual void ClearType();

    virtual const std::string* Description() const;
    virtual void SetDescription(std::string_view description);
    virtual void ClearDescription();

private:
    std::int32_t fId = kNoId;
    std::optional<std::string> fName;
    std::optional<std::int32_t> fType;
    std::optional<std::string> fDescription;
};

class CVexVariableProperty : public CVexProperty {
public:
    std::unique_ptr<CVexProperty> Clone() const override;
    void Assign(const CVexProperty& other) override;
    virtual void Assign(const CVexVariableProperty& other);

    // The value; throws std::range_error when the type is another one, or no value is set.
    virtual const std::string& Text() const;
    virtual std::int32_t Integer() const;

    // Also sets the type: to a number, unless it is an enumerated one already, or to a text.
    virtual void SetInteger(std::int32_t integer);
    virtual void SetText(std::string_view text);

    // Forgets the value and the type.
    virtual void ClearValue();

    // In the description of a function's parameter: it takes a plain argument.
    virtual std::optional<bool> TakesValue() const;
    virtual void SetTakesValue(bool takes);
    virtual void ClearTakesValue();

    // It takes a name with an ampersand before it.
    virtual std::optional<bool> TakesName() const;
    virtual void SetTakesName(bool takes);
    virtual void ClearTakesName();

private:
    std::optional<std::int32_t> fInteger;
    std::optional<std::string> fText;
    std::optional<bool> fTakesValue;
    std::optional<bool> fTakesName;
};

class CVexVariablePropertyList : public CVexPropertyList<CVexVariableProperty> {
public:
    std::unique_ptr<CVexPropertyList<CVexVariableProperty>> Clone() const override;

    // Appends a variable of that type and returns it.
    virtual CVexVariableProperty& AddInteger(std::string_view name, std::int32_t integer);
    virtual CVexVariableProperty& AddEnumerated(std::string_view name, std::int32_t integer);
    virtual CVexVariableProperty& AddText(std::string_view name, std::string_view text);
};

class CVexFunctionProperty : public CVexProperty {
public:
    std::unique_ptr<CVexProperty> Clone() const override;
    void Assign(const CVexProperty& other) override;
    virtual void Assign(const CVexFunctionProperty& other);

    virtual std::optional<bool> Flag() const;
    virtual void SetFlag(bool flag);
    virtual void ClearFlag();

    virtual const CVexVariablePropertyList& Parameters() const;
    virtual void SetParameters(const CVexVariablePropertyList& parameters);
    virtual void ClearParameters();

private:
    std::optional<bool> fFlag;
    CVexVariablePropertyList fParameters;
};

class CVexFunctionPropertyList : public CVexPropertyList<CVexFunctionProperty> {
public:
    std::unique_ptr<CVexPropertyList<CVexFunctionProperty>> Clone() const override;

    // Appends a function without parameters and returns it.
    virtual CVexFunctionProperty& AddFunction(std::string_view name);
};

class CVexViewTypeProperty : public CVexProperty {
public:
    std::unique_ptr<CVexProperty> Clone() const override;
    void Assign(const CVexProperty& other) override;
    virtual void Assign(const CVexViewTypeProperty& other);

    virtual const CVexVariablePropertyList& Properties() const;
    virtual void SetProperties(const CVexVariablePropertyList& properties);
    virtual void ClearProperties();

private:
    CVexVariablePropertyList fProperties;
};

} // namespace Kesto
