// The edition of the host that this build is for.
#include "foundation/settings/settings_locations.h"

namespace Kesto {

// SIDECAR_EDITION is the enumerator that the build option of that name picks.
Edition HostEdition()
{
    return Edition::SIDECAR_EDITION;
}

} // namespace Kesto
