// Octets and texts as the tests write them down.
#ifndef TESTS_SUPPORT_OCTETS_H
#define TESTS_SUPPORT_OCTETS_H

#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "Encoding/Pdu.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace tests {

using Bytes = std::vector<unsigned char>;

/// The octets of a hexadecimal text; blanks are skipped. Throws std::invalid_argument for anything else.
Bytes Octets(std::string_view hex);

/// The hexadecimal text of octets, upper case, a blank between two.
std::string Hex(const Bytes& octets);
std::string Hex(const unsigned char* octets, std::size_t count);

/// A PDU of these octets, 512 at most.
Toolkit::smart_ptr<Encoding::Pdu> MakePdu(const Bytes& octets);
Toolkit::smart_ptr<Encoding::Pdu> MakePdu(std::string_view hex);

/// The octets of a PDU.
Bytes OctetsOf(const Encoding::Pdu& pdu);

/// A wide text of these code units.
TString<wchar_t> Wide(std::initializer_list<unsigned int> units);

/// The reference count of a smart_ptr, read from its block.
template <class T, class Policy>
int CountOf(const Toolkit::smart_ptr<T, Policy>& pointer) {
    struct Words {
        T* m_pObject;
        Toolkit::ReferenceBlock* m_pBlock;
    };
    return reinterpret_cast<const Words&>(pointer).m_pBlock->m_Count;
}

} // namespace tests

#endif
