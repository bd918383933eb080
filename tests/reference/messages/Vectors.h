// The vectors that the second reading writes, file by file (tests/vectors/README.md).
#ifndef TESTS_REFERENCE_MESSAGES_VECTORS_H
#define TESTS_REFERENCE_MESSAGES_VECTORS_H

#include <string>
#include <vector>

#include "model/Reading.h"

namespace plain {

struct Vector {
    std::string name, clause;
    Input input;
};

struct VectorFile {
    std::string name; ///< in tests/vectors
    std::vector<Vector> vectors;
};

/// Every file that is written; by-hand.jsonl is not among them.
std::vector<VectorFile> WrittenFiles();
/// A file's text: one vector a line, each with what the second reading says of it.
std::string TextOf(const VectorFile& file);

} // namespace plain

#endif
