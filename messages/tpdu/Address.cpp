#include "Messages/Address.h"

namespace Messages {

std::string Address::ToString() const {
    return Type() == TypeOfNumber::International && !text.empty() ? '+' + text : text;
}

} // namespace Messages
