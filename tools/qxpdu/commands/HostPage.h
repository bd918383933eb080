// A cell broadcast page as libQX_Encoding reads it, alone.
#ifndef QXPDU_HOSTPAGE_H
#define QXPDU_HOSTPAGE_H

#include <string>

#include "Messages/Octets.h"
#include "stream/Console.h"
#include "stream/Input.h"

namespace qxpdu {

/// Shows the header and the text of as many octets as a PDU of libQX_Encoding holds; `warning` is about the
/// input, and may be empty. Throws InputError for what is no page.
void ShowHostPage(const Input& input, Messages::OctetView octets, const std::string& warning,
                  Console& console);

} // namespace qxpdu

#endif
