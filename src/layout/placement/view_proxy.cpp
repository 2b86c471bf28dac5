#include "layout/placement/view_proxy.h"

#include "layout/placement/generator.h"

namespace Kesto {

namespace {

// The layout keys that a scope or one around it defines.
LayoutKeySet KeysOfChain(const CExpressionScope* scope)
{
    LayoutKeySet keys;
    for (; scope != nullptr; scope = scope->Parent())
        keys = keys | scope->LayoutKeys();
    return keys;
}

// The integer of `key` in the chain of `scope`, or 0 when it is unknown or undefined.
std::int32_t NumberInChain(const CExpressionScope& scope, LayoutKey key)
{
    const VexValue* const value = scope.FindVariable(key);
    return value != nullptr && value->integer != VexUndefined ? value->integer : 0;
}

} // namespace

CViewProxy::CViewProxy(CViewProxy* parent, StringPool& pool)
    : fProperties(nullptr, nullptr, &pool), fParent(parent)
{
    if (parent == nullptr)
        return;
    fDefaultHorizontal = parent->fChildHorizontal;
    fDefaultVertical = parent->fChildVertical;
    fParentOffscreen = parent->fParentOffscreen;
}

// Takes the tree apart from its leaves: every proxy dies without children. It takes no memory: a
// text may be refused because there is none.
CViewProxy::~CViewProxy()
{
    CViewProxy* at = this;
    while (at != this || !at->fChildren.empty()) {
        if (!at->fChildren.empty()) {
            CViewProxy* const child = at->fChildren.back().get();
            child->fParent = at; // it may have been made without one
            at = child;
        } else {
            at = at->fParent;
            at->fChildren.pop_back();
        }
    }
}

void CViewProxy::Define(std::string_view className, CExpressionScope& properties,
                        CGenerator& generator)
{
    fChildren.clear();
    fViewName = generator.Pool().InternString(className);
    fViewNameLength = className.size();
    CopyKeys(properties);
    generator.Measure(ViewName(), &properties, &fProperties);
    ReadNumbers(properties);
}

// Each key arrives as a truth value only: the generator writes the number over it when the key
// is given in a block or in the view itself, but not when it is in the root scope.
void CViewProxy::CopyKeys(CExpressionScope& properties)
{
    const LayoutKeySet known = KeysOfChain(&properties);
    fParentOffscreen =
        fParentOffscreen || (known.Has(LayoutKey::kPlacement) &&
                             NumberInChain(properties, LayoutKey::kPlacement) == kPlace_Offscreen);
    (known & LayoutKeySet::Copied()).ForEach([&](LayoutKey key) {
        fProperties.AddVariable(key, properties.FindVariable(key)->integer != 0 ? 1 : 0);
    });
    if (fDefaultHorizontal != 0 && !known.Has(LayoutKey::kHorizontal))
        fProperties.AddVariable(LayoutKey::kHorizontal, fDefaultHorizontal);
    if (fDefaultVertical != 0 && !known.Has(LayoutKey::kVertical))
        fProperties.AddVariable(LayoutKey::kVertical, fDefaultVertical);
}

// An undefined number counts as not given. A text where a number belongs is given, as 0.
bool CViewProxy::Read(LayoutKey key, std::int32_t& number) const
{
    if (!fProperties.LayoutKeys().Has(key))
        return false;
    const VexValue& value = *fProperties.FindVariable(key);
    const bool isGiven = value.integer != VexUndefined || *value.text != 0;
    if (isGiven)
        number = value.integer != VexUndefined ? value.integer : 0;
    return isGiven;
}

std::int32_t CViewProxy::ReadOr(LayoutKey key, std::int32_t absent) const
{
    Read(key, absent);
    return absent;
}

// A stack stretches its children unless it says otherwise itself, so its own child_horizontal is
// read after its placement.
void CViewProxy::ReadNumbers(const CExpressionScope& properties)
{
    fAlwaysL2R = ReadOr(LayoutKey::kAlwaysL2R, 0) != 0;
    Read(LayoutKey::kWidth, fWidth);
    Read(LayoutKey::kHeight, fHeight);
    Read(LayoutKey::kMaxHeight, fMaxHeight);
    Read(LayoutKey::kInset, fInset);
    ReadOutsets();
    Read(LayoutKey::kHorizontal, fHorizontal);
    Read(LayoutKey::kVertical, fVertical);
    if (!Read(LayoutKey::kSpacing, fSpacing))
        fSpacing = NumberInChain(properties, LayoutKey::kDefaultSpacing);
    fReverse = ReadOr(LayoutKey::kReverse, 0) != 0;
    Read(LayoutKey::kPlacement, fPlacement);
    if (fPlacement == kPlace_Offscreen)
        fChildHorizontal = kAlign_InFill;
    Read(LayoutKey::kChildHorizontal, fChildHorizontal);
    Read(LayoutKey::kChildVertical, fChildVertical);
    ReadMargins();
    Read(LayoutKey::kLeftOffset, fLeftOffset);
    Read(LayoutKey::kTopOffset, fTopOffset);
    fHasLabel = Read(LayoutKey::kLabelWidth, fLabelWidth);
}

void CViewProxy::ReadOutsets()
{
    Read(LayoutKey::kOutset, fOutset);
    fLeftOutset = ReadOr(LayoutKey::kLeftOutset, fOutset);
    fTopOutset = ReadOr(LayoutKey::kTopOutset, fOutset);
    fRightOutset = ReadOr(LayoutKey::kRightOutset, fOutset);
    fBottomOutset = ReadOr(LayoutKey::kBottomOutset, fOutset);
    Read(LayoutKey::kTopInset, fTopInset);
}

void CViewProxy::ReadMargins()
{
    const std::int32_t margin = ReadOr(LayoutKey::kMargin, 0);
    const std::int32_t width = ReadOr(LayoutKey::kMarginWidth, margin);
    fMarginLeft = ReadOr(LayoutKey::kMarginLeft, width);
    fMarginRight = ReadOr(LayoutKey::kMarginRight, width);
    const std::int32_t height = ReadOr(LayoutKey::kMarginHeight, margin);
    fMarginTop = ReadOr(LayoutKey::kMarginTop, height);
    fMarginBottom = ReadOr(LayoutKey::kMarginBottom, height);
}

} // namespace Kesto
