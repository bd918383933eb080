// JSON as a tree of values, for results that are put together piece by piece.
#ifndef QXPDU_JSON_H
#define QXPDU_JSON_H

#include <nlohmann/json.hpp>

namespace qxpdu {

/// Members keep the order in which they are made.
using Json = nlohmann::ordered_json;

} // namespace qxpdu

#endif
