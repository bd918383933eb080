// Does one work so many times, to be counted by callgrind: qx_instructions W1|W2|W3|W4|W5 TIMES.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "Codec.h"
#include "Texts.h"

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    const std::string work = argv[1];
    const auto codec = bench::MakeOwnCodec(true);
    const bench::Octets pdu = work == "W1" ? bench::Deliver160() : bench::DeliverUcs2();
    const bool decodes = work == "W1" || work == "W2";
    if (!decodes)
        codec->Prepare(work == "W3"   ? bench::c_gsm160
                       : work == "W4" ? bench::c_gsm1000
                                      : bench::c_ucs70,
                       work != "W5");
    for (int times = std::atoi(argv[2]); times > 0; --times) {
        if (decodes)
            codec->Decode(pdu);
        else
            codec->Encode();
    }
}
