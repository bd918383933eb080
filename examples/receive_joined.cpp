// PDUs in hexadecimal, one a line of standard input, as messages: long ones once all of their parts are
// there.
#include <ctime>
#include <iostream>
#include <string>

#include "Messages/Parts.h"
#include "Messages/Words.h"

namespace {

void Show(const std::vector<Messages::Joined>& messages) {
    for (const Messages::Joined& message : messages) {
        if (message.outcome == Messages::JoinOutcome::Duplicate)
            continue;
        if (const Messages::Address* party = Messages::PartyOf(message.parts.front().tpdu))
            std::cout << party->ToString() << ": ";
        std::cout << message.text;
        if (message.outcome != Messages::JoinOutcome::Complete)
            std::cout << " (" << message.parts.size() << " of " << +message.total << " parts)";
        std::cout << '\n';
    }
}

} // namespace

int main() {
    Messages::Joiner joiner; // with its own bounds: what waits for a day is given up
    for (std::string line; std::getline(std::cin, line);) {
        const Messages::Reading reading = Messages::ReadHex(line);
        if (reading.fault)
            std::cerr << Messages::MeaningOf(*reading.fault) << '\n';
        else
            Show(joiner.Add(reading, std::time(nullptr)));
    }
    Show(joiner.Finish());
}
