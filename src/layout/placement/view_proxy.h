// What is kept of a view of a layout text until the views are made: its numbers for placement,
// and its children.
//
// All numbers are logical pixels. A key that isn't given, or whose value is undefined, is 0.
#pragma once

#include "layout/language/expression_scope.h"
#include "layout/vocabulary/placement_words.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

namespace Kesto {

class CGenerator;
class CViewProxy;
class StringPool;

using ViewProxyList = std::vector<std::unique_ptr<CViewProxy>>;

class CViewProxy {
public:
    // Takes the defaults for its children from `parent`, which may be null.
    CViewProxy(CViewProxy* parent, StringPool& pool);
    CViewProxy(const CViewProxy&) = delete;
    CViewProxy& operator=(const CViewProxy&) = delete;
    ~CViewProxy(); // without recursion, however deep the tree is

    // Describes the view to `generator` and reads the numbers that come back. `properties` is the
    // scope of the view's own properties, chained to the blocks around it.
    void Define(std::string_view className, CExpressionScope& properties, CGenerator& generator);

    std::string_view ViewName() const { return {fViewName, fViewNameLength}; }

    // All that lies between the children.
    std::int64_t SpacingSum() const
    {
        return fChildren.empty() ? 0 : (std::ssize(fChildren) - 1) * std::int64_t{fSpacing};
    }

    std::int32_t WithinMaxHeight(std::int32_t height) const
    {
        return fMaxHeight > 0 ? std::min(height, fMaxHeight) : height;
    }

    // Whether this view, as the first child of a row, makes its label that of the row.
    bool StartsLabelColumn() const { return fHasLabel && fHorizontal != kAlign_InCenter; }

    ViewProxyList fChildren;
    std::int32_t fLeft = 0; // the result: the position within the parent
    std::int32_t fTop = 0;
    std::int32_t fWidth = 0; // the natural size, then the result
    std::int32_t fHeight = 0;
    std::int32_t fMaxHeight = 0; // none if not positive
    std::int32_t fInset = 0;
    std::int32_t fOutset = 0;
    std::int32_t fLeftOutset = 0; // how far the visible edge lies beyond the frame
    std::int32_t fTopOutset = 0;
    std::int32_t fRightOutset = 0;
    std::int32_t fBottomOutset = 0;
    std::int32_t fLabelWidth = 0;
    std::int32_t fTopInset = 0;
    std::int32_t fHorizontal = 0;
    std::int32_t fVertical = 0;
    bool fAlwaysL2R = false;
    std::int32_t fSpacing = 0; // between the children
    const char* fViewName = "";
    std::size_t fViewNameLength = 0;
    CExpressionScope fProperties; // the layout scope: without a parent, in the generator's pool
    std::int32_t fMarginLeft = 0;
    std::int32_t fMarginTop = 0;
    std::int32_t fMarginRight = 0;
    std::int32_t fMarginBottom = 0;
    std::int32_t fLeftOffset = 0; // added to the result
    std::int32_t fTopOffset = 0;
    std::int32_t fChildHorizontal = 0; // what the children inherit
    std::int32_t fChildVertical = 0;
    std::int32_t fPlacement = kPlace_Column;
    bool fHasLabel = false;
    bool fReverse = false; // the children's order is reversed before they are placed
    CViewProxy* fParent;
    bool fParentOffscreen = false; // the view or one around it keeps its children off the screen
    std::int32_t fDefaultHorizontal = 0;
    std::int32_t fDefaultVertical = 0;
    std::int64_t fChildWidthSum = 0; // of the natural sizes, without what lies between them
    std::int64_t fChildHeightSum = 0;

private:
    void CopyKeys(CExpressionScope& properties);
    void ReadNumbers(const CExpressionScope& properties);
    void ReadOutsets();
    void ReadMargins();
    bool Read(LayoutKey key, std::int32_t& number) const;
    std::int32_t ReadOr(LayoutKey key, std::int32_t absent) const;
};

} // namespace Kesto
