#pragma once

#include "run/byte_order.h"
