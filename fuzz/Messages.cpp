// Any octets, read by the standards in every way that there is.
#include "messages/Agreement.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    tests::CheckAgreement({data, size});
    return 0;
}
