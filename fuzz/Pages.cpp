// Any octets, read by the standards as cell broadcast; or runs of characters, written. Input: the format or,
// with its highest bit, that they are runs; the octets.
#include "messages/Agreement.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    constexpr unsigned int formats = 4;
    constexpr unsigned int runs = 0x80;
    if (size != 0 && (data[0] & runs) != 0)
        tests::CheckCellText({data + 1, size - 1});
    else if (size != 0)
        tests::CheckCellAgreement({data + 1, size - 1}, static_cast<Messages::CellFormat>(data[0] % formats));
    return 0;
}
