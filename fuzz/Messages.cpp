// Any octets, read by the standards. Input: which way to read, the PDU.
#include "messages/Agreement.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size != 0)
        tests::CheckAgreement({data + 1, size - 1}, data[0] % tests::c_ways);
    return 0;
}
