// Reads the properties of a view, by key, in the forms that classes want them in.
//
// Each form has a Try, which tells whether the key is defined, and one with a default. A number
// that is undefined, as a text of other than four bytes is, reads as 0. Where a form takes a text
// or a number, a text that isn't empty wins.
#pragma once

#include "foundation/base/text.h"
#include "layout/build/property_row.h"
#include "view/messages/object_id.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace Kesto {

class CExpressionScope;
struct VexValue;

class CPropertyReader {
public:
    // Told of each key that is asked for, defined or not. For tests.
    using Listener = std::function<void(std::string_view key)>;

    // A reader without a scope finds nothing. Both must outlive it.
    CPropertyReader(const CExpressionScope* scope, const Listener& listener)
        : fScope(scope), fListener(listener)
    {
    }

    bool IsDefined(const VexName& key) const { return Find(key) != nullptr; }

    bool TryFlag(const VexName& key, bool& flag) const; // any number but 0, and any text
    bool TryInteger(const VexName& key, std::int32_t& number) const;
    bool TryInteger16(const VexName& key, std::int16_t& number) const; // its low 16 bits
    bool TryText(const VexName& key, CText& text) const;               // empty for a number
    bool TryFourChar(const VexName& key, std::int32_t& code) const;

    // A text or a number.
    bool TryDecimal(const VexName& key, double& number) const; // of a text, what strtod reads
    bool TryId(const VexName& key, CObjID& id) const;          // of a text, its identifier
    bool TryLabel(const VexName& key, CText& label) const;     // localised; of a number, its digits

    bool Flag(const PropertyRow& row) const;
    std::int32_t Integer(const PropertyRow& row) const;
    double Decimal(const PropertyRow& row) const;
    CText Text(const PropertyRow& row) const;
    CText Label(const PropertyRow& row) const;
    CObjID Id(const PropertyRow& row) const;

private:
    const VexValue* Find(const VexName& key) const;

    const CExpressionScope* fScope;
    const Listener& fListener;
};

} // namespace Kesto
