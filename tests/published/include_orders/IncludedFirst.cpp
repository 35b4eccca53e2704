// The published header compiles before the headers of others. The test is that this file compiles.

#include <quorvel/quorvel.h>

#include "tests/published/include_orders/HostHeaders.h"
#include "tests/published/include_orders/UseComponent.h"

HRESULT UseFirst(VARIANT* value) { return UseComponent(value); }
