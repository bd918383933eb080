#include "OsmoSeptets.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

extern "C" {
#include <osmocom/gsm/gsm_utils.h>
}

namespace bench {

namespace {
constexpr unsigned int c_septets = 160;
}

void OsmoUnpack160(const unsigned char* octets, unsigned char* septets) {
    char text[c_septets + 1];
    gsm_7bit_decode_n(text, sizeof text, octets, c_septets);
    std::memcpy(septets, text, c_septets);
}

void OsmoPack160(const unsigned char* septets, unsigned char* octets) {
    gsm_septet_pack(octets, septets, c_septets, 0);
}

} // namespace bench
