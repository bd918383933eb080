// The tree of JSON values by name alone, for headers: what it consists of takes long to compile.
#ifndef SHOW_JSONFORWARD_H
#define SHOW_JSONFORWARD_H

#include <nlohmann/json_fwd.hpp>

namespace show {

/// Members keep the order in which they are made.
using Json = nlohmann::ordered_json;

} // namespace show

#endif
