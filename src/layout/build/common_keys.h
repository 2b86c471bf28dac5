// The keys that windows and panes both read.
#pragma once

#include "layout/build/property_row.h"

namespace Kesto {

class CPropertyReader;
class CView;

inline constexpr PropertyRow kViewIdKey{VexName("view_id"), 0,
                                        "the name that messages and lookups know it by"};

// Tips, and where they open. Help is the older word for them and counts where no tip is given.
PropertyRows TipRows();
void ReadTips(CView& view, const CPropertyReader& reader);

} // namespace Kesto
