// JSON as a tree of values, for what is read, and for results that are put together piece by piece. Those
// that come by the million are not: see JsonText.h.
#ifndef SHOW_JSON_H
#define SHOW_JSON_H

#include <nlohmann/json.hpp>

#include "show/JsonForward.h"

#endif
