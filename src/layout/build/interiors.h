// Views that children can be put into at several places.
#pragma once

#include <cstdint>

namespace Kesto {

class CView;

// A base of such views, beside CPane.
class CInteriors {
public:
    virtual ~CInteriors() = default;

    // The view that an EInterior names; this view itself for a number that it doesn't know.
    virtual CView& Interior(std::int32_t number) = 0;
};

// The interior of any view: those without are their own.
CView& InteriorOf(CView& view, std::int32_t number);

} // namespace Kesto
