// User data made of a text.
#ifndef TPDU_MAKING_H
#define TPDU_MAKING_H

#include <string_view>

#include "Messages/DataCoding.h"
#include "Messages/Octets.h"
#include "Messages/Tpdu.h"

namespace Messages {

/// MakeUserData() of content that the text was written as, with these tables: the octets are read as a text
/// only where the elements tell of other tables. REQUIRES that TP-UDL can count it.
UserData MakeUserDataOfText(const DataCoding& coding, OctetView elements, OctetView content,
                            SeptetTables tables, std::string_view text);

} // namespace Messages

#endif
