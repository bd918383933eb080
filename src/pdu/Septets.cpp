#include "pdu/Septets.h"

#include "pdu/Octets.h"

namespace Encoding {
namespace {

constexpr unsigned int c_septetBits = 7;
constexpr unsigned int c_octetBits = 8;
constexpr unsigned int c_septetMask = 0x7F;

} // namespace

void UnpackSeptets(const Pdu& pdu, unsigned int offset, unsigned int startBit, unsigned int count,
                   unsigned char* septets) {
    unsigned int shift = startBit;
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int pair = OctetAt(pdu, offset) | static_cast<unsigned int>(OctetAt(pdu, offset + 1))
                                                             << c_octetBits;
        septets[i] = static_cast<unsigned char>(pair >> shift & c_septetMask);
        shift += c_septetBits;
        offset += shift / c_octetBits;
        shift %= c_octetBits;
    }
}

void WriteSeptets(Pdu& pdu, const unsigned char* septets, unsigned int count, unsigned int startBit) {
    unsigned int pending = 0;
    unsigned int bits = startBit;
    for (unsigned int i = 0; i < count; ++i) {
        pending |= static_cast<unsigned int>(septets[i]) << bits;
        bits += c_septetBits;
        if (bits >= c_octetBits) {
            pdu.Write(static_cast<unsigned char>(pending));
            pending >>= c_octetBits;
            bits -= c_octetBits;
        }
    }
    if (bits != 0)
        pdu.Write(static_cast<unsigned char>(pending));
}

} // namespace Encoding
