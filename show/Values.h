// What single values mean, for a person, where libQX_Messages has no words for them.
#ifndef SHOW_VALUES_H
#define SHOW_VALUES_H

#include <string>
#include <string_view>

#include "Messages/Address.h"
#include "Messages/Octets.h"
#include "Messages/Read.h"

namespace show {

/// What a field of the first octet, or of the parameter indicator, says.
std::string_view MeaningOfFlag(Messages::Field field, unsigned int value);

/// "to-mobile" or "from-mobile"; empty where it is not known.
std::string_view DirectionName(Messages::Direction direction);

/// "+12345678901, international, ISDN/telephone (E.164)"
std::string MeaningOf(const Messages::Address& address);

/// Octets that are no text, for a person: ASCII, and a point for what is none.
std::string DataText(Messages::OctetView data);

} // namespace show

#endif
