/* The whole of the host's protocol. */
#ifndef LUMOGRAPH_LUMOGRAPH_H
#define LUMOGRAPH_LUMOGRAPH_H

#include "entry.h"
#include "file_service.h"
#include "records.h"
#include "results.h"
#include "selectors.h"
#include "suites.h"
#include "view_info.h"
#include "window_requests.h"

#endif
