// Does one work so many times, to be counted by callgrind:
//   qx_instructions W1|W2|W3|W4|W5 wide|octets|hexadecimal|fresh TIMES [messages]
#include <cstdlib>
#include <string>

#include "Codec.h"
#include "Texts.h"

int main(int argc, char** argv) {
    if (argc < 4)
        return 2;
    const std::string work = argv[1];
    const std::string form = argv[2];
    const bench::Form of = form == "octets"        ? bench::Form::Utf8
                           : form == "hexadecimal" ? bench::Form::Hexadecimal
                                                   : bench::Form::Wide;
    const bool isMessages = argc > 4;
    const auto codec = isMessages ? bench::MakeMessagesCodec(of) : bench::MakeOwnCodec(of, form != "fresh");
    codec->Prepare(work == "W1" ? bench::Deliver160() : bench::DeliverUcs2());
    codec->Prepare(work == "W3"   ? bench::c_gsm160
                   : work == "W4" ? bench::c_gsm1000
                                  : bench::c_ucs70,
                   work != "W5");
    for (int times = std::atoi(argv[3]); times > 0; --times) {
        if (work == "W1" || work == "W2")
            codec->Decode();
        else
            codec->Encode();
    }
}
