// What a text costs as libQX_Encoding sends it.
#ifndef QXPDU_HOSTCOUNT_H
#define QXPDU_HOSTCOUNT_H

#include "stream/Console.h"
#include "stream/Input.h"

namespace qxpdu {

/// Shows it; `isGreek` where the Greek table is selected.
void CountAsHost(const Input& input, bool isGreek, Console& console);

} // namespace qxpdu

#endif
