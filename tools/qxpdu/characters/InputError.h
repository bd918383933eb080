// What is wrong with one input.
#ifndef QXPDU_INPUTERROR_H
#define QXPDU_INPUTERROR_H

#include <stdexcept>

namespace qxpdu {

/// Ends the work on one input; its text says what is wrong and where. The remaining inputs are not affected.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace qxpdu

#endif
