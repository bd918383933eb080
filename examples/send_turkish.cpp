// A text in Turkish as the commands for a modem, in as few messages as it takes. Usage: send_turkish NUMBER
// TEXT
#include <iostream>

#include "Messages/Parts.h"
#include "Messages/Words.h"
#include "Messages/Write.h"

int main(int count, char** arguments) {
    Messages::Submit submit;
    if (count != 3 || Messages::ToNumber(arguments[1], submit.destination)) {
        std::cerr << "usage: send_turkish NUMBER TEXT\n";
        return 2;
    }
    Messages::CutOptions options;
    options.choice.languages = {Messages::Language::Turkish}; // beside the default alphabet and UCS2
    const Messages::CutText cut = Messages::CutIntoParts(arguments[2], options);
    if (cut.fault) {
        std::cerr << Messages::MeaningOf(*cut.fault) << '\n';
        return 1;
    }
    submit.coding = cut.coding;
    for (const Messages::UserData& part : cut.parts) {
        submit.userData = part;
        const Messages::Written written = Messages::Write(submit, Messages::Address{});
        if (written.fault)
            std::cerr << Messages::MeaningOf(*written.fault) << '\n';
        else
            std::cout << "AT+CMGS=" << written.tpduOctets << '\n'
                      << Messages::ToHex(written.octets) << "\x1A\n";
    }
}
