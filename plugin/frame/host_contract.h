#pragma once

#include "frame/contract_bars.h"        // IWYU pragma: export
#include "frame/contract_bill.h"        // IWYU pragma: export
#include "frame/contract_containers.h"  // IWYU pragma: export
#include "frame/contract_lists.h"       // IWYU pragma: export
#include "frame/contract_services.h"    // IWYU pragma: export
