// The published header compiles after the headers of others. The test is that this file compiles.

#include "tests/published/include_orders/HostHeaders.h"

#include <quorvel/quorvel.h>

#include "tests/published/include_orders/UseComponent.h"

HRESULT UseLast(VARIANT* value) { return UseComponent(value); }
