// What the parser hands the views of a layout to.
#pragma once

#include "layout/language/string_pool.h"

#include <string_view>

namespace Kesto {

class CExpressionScope;
class CView;

class CGenerator {
public:
    CGenerator() = default;
    CGenerator(const CGenerator&) = delete;
    CGenerator& operator=(const CGenerator&) = delete;
    virtual ~CGenerator() = default;

    // Called for each view as soon as its properties are read, the enclosing view first. The class
    // may state its natural size and other placement keys in `layoutScope`. `properties` dies after
    // the call; names in the blocks around the view are found through it. An unknown
    // class is no error.
    virtual void Measure(std::string_view className, CExpressionScope* properties,
                         CExpressionScope* layoutScope) = 0;

    // Called for each view when all are placed, the enclosing view first. Makes the view that
    // `layoutScope` describes in `parentView`, null for the outermost one, and returns it, or null.
    virtual CView* Build(std::string_view className, CExpressionScope* layoutScope,
                         CView* parentView) = 0;

    // If not null, the result of the parse in place of what the outermost Build returned.
    CView* Result() const { return fResult; }

    // Shared by the layout scopes and the root scope: their names and texts live as long as the
    // generator.
    StringPool& Pool() { return fPool; }

protected:
    CView* fResult = nullptr;

private:
    StringPool fPool;
};

} // namespace Kesto
