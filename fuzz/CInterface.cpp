// The C interface beside the C++ one, on any octets. Input: an octet that says whether they are a PDU, a page
// or a text, and how it is to be read or cut; the octets.
#include <string_view>

#include "Input.h"
#include "messages/c/Agreement.h"

namespace {

using namespace Messages;

Presence PresenceOf(unsigned int number) {
    return static_cast<Presence>(number % 3U);
}

void CheckText(fuzz::Input& input, unsigned int how) {
    CutOptions options;
    const std::uint32_t languages = input.Word(2);
    for (std::uint8_t language = 0; language <= c_lastLanguage; ++language)
        if ((languages >> language & 1U) != 0)
            options.choice.languages.Add(static_cast<Language>(language));
    options.choice.room.octets = 1 + input.Octet() % 159U;
    options.choice.room.hasWideReference = (how & 1U) != 0;
    options.replacesNear = (how & 2U) != 0;
    options.reference = input.Octet();
    if ((how & 4U) != 0)
        options.choice.alphabet = (how & 8U) != 0 ? Alphabet::Ucs2 : Alphabet::Gsm7;
    if ((how & 16U) != 0)
        options.ports = Ports{(how & 8U) != 0, input.Octet(), input.Octet()};
    const auto text = input.Octets(input.Left());
    tests::CheckCCutAgreement({text.data(), text.size()}, options);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const unsigned int how = data[0] / 3U;
    const OctetView rest(data + 1, size - 1);
    fuzz::Input input(rest.data(), rest.size());
    switch (data[0] % 3U) {
    case 0:
        tests::CheckCAgreement(rest, {PresenceOf(how), static_cast<Direction>(how / 3U % 3U),
                                      PresenceOf(how / 9U), std::nullopt});
        break;
    case 1:
        tests::CheckCCellAgreement(rest, static_cast<CellFormat>(how % 4U));
        break;
    default:
        CheckText(input, how);
    }
    return 0;
}
