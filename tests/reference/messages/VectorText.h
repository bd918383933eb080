// The files in tests/vectors, whose folder is QX_VECTORS.
#ifndef REFERENCE_MESSAGES_VECTORTEXT_H
#define REFERENCE_MESSAGES_VECTORTEXT_H

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Json.h"

namespace plain {

/// `file` without its ending, "by-hand".
inline std::string VectorText(const std::string& file) {
    const std::string path = std::string(QX_VECTORS) + "/" + file + ".jsonl";
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline std::vector<Json> VectorsOf(const std::string& file) {
    std::vector<Json> vectors;
    std::istringstream lines(VectorText(file));
    for (std::string line; std::getline(lines, line);)
        vectors.push_back(Json::parse(line));
    return vectors;
}

/// Members in any order, as JSON has them.
inline nlohmann::json Unordered(const Json& json) {
    return nlohmann::json::parse(json.dump());
}

} // namespace plain

#endif
