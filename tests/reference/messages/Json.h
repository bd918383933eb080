// Inputs and readings as the vectors have them (tests/vectors/README.md).
#ifndef TESTS_REFERENCE_MESSAGES_JSON_H
#define TESTS_REFERENCE_MESSAGES_JSON_H

#include <nlohmann/json.hpp>

#include "model/Reading.h"

namespace plain {

using Json = nlohmann::ordered_json;

std::string Hex(const Octets& octets);
Octets FromHex(std::string_view hex);

/// What a vector's input says; throws what the JSON library throws for one that is none.
Input InputOf(const Json& vector);
/// Adds what the reader is told to a vector.
void AddInput(Json& vector, const Input& input);
Json ToJson(const Reading& reading);

/// What messages and cell broadcast have in common.
/// @{
Json TimeJson(const Time& time);
Json ElementsJson(const std::vector<Element>& elements);
void AddFindings(Json& json, const std::vector<Remark>& remarks, const std::optional<Fault>& fault,
                 const std::vector<Place>& places);
/// @}

} // namespace plain

#endif
