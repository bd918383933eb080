// Random pages, messages and notifications of cell broadcast, sound and damaged.
#ifndef TESTS_REFERENCE_MESSAGES_CELLINPUTS_H
#define TESTS_REFERENCE_MESSAGES_CELLINPUTS_H

#include "../Random.h"
#include "model/Cell.h"

namespace plain {

/// Any format, every field of it random, most of them plausible; at times cut off, altered, lengthened, or
/// noise. The format is told rightly, wrongly or not.
CellInput RandomCellInput(reference::Random& random);

} // namespace plain

#endif
