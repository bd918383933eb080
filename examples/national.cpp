// PDUs in hexadecimal, one a line of standard input, in whatever language they are written.
#include <iostream>
#include <string>

#include "Messages/Read.h"
#include "Messages/Words.h"

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        const Messages::Reading reading = Messages::ReadHex(line);
        if (reading.fault)
            std::cout << Messages::MeaningOf(*reading.fault);
        else if (const Messages::Address* party = Messages::PartyOf(reading.tpdu))
            std::cout << party->ToString();
        if (const Messages::UserData* data = Messages::UserDataOf(reading.tpdu); data && !reading.fault)
            std::cout << " [" << Messages::NameOf(data->tables.locking) << "] " << data->text;
        std::cout << '\n';
    }
}
