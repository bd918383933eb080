// Any octets, read by the standards as cell broadcast. Input: the format, the octets.
#include "messages/Agreement.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    constexpr unsigned int formats = 4;
    if (size != 0)
        tests::CheckCellAgreement({data + 1, size - 1}, static_cast<Messages::CellFormat>(data[0] % formats));
    return 0;
}
