#include "layout/build/property_reader.h"

#include "foundation/localization/localize.h"
#include "layout/language/expression_scope.h"

#include <cstdlib>
#include <string>

namespace Kesto {

namespace {

std::int32_t IntegerOf(const VexValue& value)
{
    return value.integer != VexUndefined ? value.integer : 0;
}

} // namespace

const VexValue* CPropertyReader::Find(const VexName& key) const
{
    if (fListener)
        fListener(key.text);
    return fScope != nullptr ? fScope->FindVariable(key) : nullptr;
}

bool CPropertyReader::TryFlag(const VexName& key, bool& flag) const
{
    const VexValue* const value = Find(key);
    if (value != nullptr)
        flag = value->integer != 0;
    return value != nullptr;
}

bool CPropertyReader::TryInteger(const VexName& key, std::int32_t& number) const
{
    const VexValue* const value = Find(key);
    if (value != nullptr)
        number = IntegerOf(*value);
    return value != nullptr;
}

bool CPropertyReader::TryInteger16(const VexName& key, std::int16_t& number) const
{
    std::int32_t wide = 0;
    if (!TryInteger(key, wide))
        return false;
    number = static_cast<std::int16_t>(wide);
    return true;
}

bool CPropertyReader::TryText(const VexName& key, CText& text) const
{
    const VexValue* const value = Find(key);
    if (value != nullptr)
        text = CText(value->text);
    return value != nullptr;
}

bool CPropertyReader::TryFourChar(const VexName& key, std::int32_t& code) const
{
    return Find(key) != nullptr && fScope->GetFourCharVariable(key.text, &code);
}

bool CPropertyReader::TryDecimal(const VexName& key, double& number) const
{
    const VexValue* const value = Find(key);
    if (value != nullptr)
        number = *value->text != 0 ? std::strtod(value->text, nullptr) : IntegerOf(*value);
    return value != nullptr;
}

bool CPropertyReader::TryId(const VexName& key, CObjID& id) const
{
    const VexValue* const value = Find(key);
    if (value != nullptr)
        id = *value->text != 0 ? CObjID(value->text)
                               : CObjID::OfNumber(static_cast<std::uint32_t>(IntegerOf(*value)));
    return value != nullptr;
}

bool CPropertyReader::TryLabel(const VexName& key, CText& label) const
{
    const VexValue* const value = Find(key);
    if (value == nullptr)
        return false;
    label = *value->text != 0 ? CText(value->text) : CText(std::to_string(IntegerOf(*value)));
    Localize(label);
    return true;
}

bool CPropertyReader::Flag(const PropertyRow& row) const
{
    bool flag = row.fallback != 0;
    TryFlag(row.key, flag);
    return flag;
}

std::int32_t CPropertyReader::Integer(const PropertyRow& row) const
{
    std::int32_t number = row.fallback;
    TryInteger(row.key, number);
    return number;
}

double CPropertyReader::Decimal(const PropertyRow& row) const
{
    double number = row.fallback;
    TryDecimal(row.key, number);
    return number;
}

CText CPropertyReader::Text(const PropertyRow& row) const
{
    CText text;
    TryText(row.key, text);
    return text;
}

CText CPropertyReader::Label(const PropertyRow& row) const
{
    CText label;
    TryLabel(row.key, label);
    return label;
}

CObjID CPropertyReader::Id(const PropertyRow& row) const
{
    CObjID id;
    TryId(row.key, id);
    return id;
}

} // namespace Kesto
