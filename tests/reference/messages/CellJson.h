// Pages, messages and notifications of cell broadcast in the form of tests/vectors.
#ifndef TESTS_REFERENCE_MESSAGES_CELLJSON_H
#define TESTS_REFERENCE_MESSAGES_CELLJSON_H

#include "Json.h"
#include "model/Cell.h"

namespace plain {

CellInput CellInputOf(const Json& vector);
void AddInput(Json& vector, const CellInput& input);
Json ToJson(const CellReading& reading);

} // namespace plain

#endif
