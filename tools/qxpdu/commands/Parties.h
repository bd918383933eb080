// The numbers and names that messages go to and come from.
#ifndef QXPDU_PARTIES_H
#define QXPDU_PARTIES_H

#include <string>

#include "Messages/Address.h"

namespace qxpdu {

/// What makes a number unusable, or nothing: a character that no number has, no digit at all, or too many.
std::string FaultOfNumber(const std::string& number);

/// The same where a name may stand as well.
std::string FaultOfParty(const std::string& party);

/// REQUIRES that nothing is wrong with it. What has a plus sign first, or no letter, is a number.
Messages::Address AddressOfNumber(const std::string& number);
Messages::Address AddressOfParty(const std::string& party);

} // namespace qxpdu

#endif
