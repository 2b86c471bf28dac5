// CStringTable, the texts that replace "$$$/" literals. Reached through CServiceT<CStringTable>,
// from one thread.
//
// Creating it loads the module's string files: its resources of type "TStr", in the order in which
// the platform enumerates them, so that a later file's text for a key replaces an earlier one's.
// From then on it only grows.
#pragma once

#include "foundation/base/chained_table.h"
#include "foundation/base/service.h"
#include "foundation/base/text.h"

namespace Kesto {

class CStringTable : public CChainedTable<CText> {
public:
    CStringTable();
};

} // namespace Kesto
