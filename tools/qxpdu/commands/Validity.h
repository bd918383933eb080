// How long a message is valid, as the user writes it.
#ifndef QXPDU_VALIDITY_H
#define QXPDU_VALIDITY_H

#include <string>

#include "Messages/Time.h"

namespace qxpdu {

/// What the user says of it.
struct ValidityOptions {
    std::string period; ///< "90m", "1d12h", "01:30:00", "max", an octet, or a point in time; may be empty
    std::string format; ///< "relative", "enhanced", "absolute", or empty where the period tells
    bool isSingleShot = false;
};

/// What is wrong with either by itself; nothing where it is good.
std::string FaultOfPeriod(const std::string& text);
std::string FaultOfValidityFormat(const std::string& text);

/// TP-VP, and what the user is to know of it.
struct MadeValidity {
    Messages::Validity validity;
    std::string caution; ///< where the period is another than the user wrote
};

/// Throws InputError, which begins with the option, where format and period do not go together.
MadeValidity MakeValidity(const ValidityOptions& options);

} // namespace qxpdu

#endif
