// The vectors of cell broadcast that the second reading writes (tests/vectors/README.md).
#ifndef TESTS_REFERENCE_MESSAGES_CELLVECTORS_H
#define TESTS_REFERENCE_MESSAGES_CELLVECTORS_H

#include <string>
#include <vector>

#include "model/Cell.h"

namespace plain {

struct CellVector {
    std::string name, clause;
    CellInput input;
};

/// The name of their file in tests/vectors.
inline const std::string c_cellFile = "cell";

std::vector<CellVector> CellVectors();
/// The file's text: one vector a line, each with what the second reading says of it.
std::string TextOf(const std::vector<CellVector>& vectors);

} // namespace plain

#endif
