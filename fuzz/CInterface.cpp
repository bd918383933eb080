// The C interface beside the C++ one, on any octets. Input: an octet that says whether they are a PDU, a page
// or a text, and how it is to be read or cut, or, from 0xC0 on, a PDU whose members are changed before it is
// written again, a draft of pages, or what the makers are given; the octets.
#include <string_view>

#include "Input.h"
#include "messages/c/Agreement.h"
#include "messages/c/Changes.h"

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

OctetView Octets(const TString<char>& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string_view TextOf(fuzz::Input& input, TString<char>& octets) {
    octets = input.Octets(input.Left());
    return {octets.data(), octets.size()};
}

void CheckDraft(fuzz::Input& input) {
    CellDraft draft;
    const unsigned int how = input.Octet();
    TString<char> octets;
    draft.format = static_cast<CellFormat>(how & 3U);
    if ((how & 4U) != 0)
        draft.alphabet = static_cast<Alphabet>(how / 8U % 3U);
    if ((how & 32U) != 0)
        draft.messageClass = input.Octet();
    draft.serialNumber.value = static_cast<std::uint16_t>(input.Word(2));
    draft.messageIdentifier = static_cast<std::uint16_t>(input.Word(2));
    if ((how & 64U) != 0) {
        octets = input.Octets(2);
        draft.language.assign(octets.data(), octets.size());
    }
    draft.text = TextOf(input, octets);
    tests::CheckCDraftAgreement(draft);
}

void CheckMakers(fuzz::Input& input) {
    const auto signedWord = [&](unsigned int octets) {
        return static_cast<std::int32_t>(input.Word(octets));
    };
    const std::uint8_t coding = input.Octet();
    tests::CheckCTimeAgreement(input.Word(4), static_cast<std::int8_t>(input.Octet()));
    const int year = signedWord(2), month = input.Octet(), day = input.Octet(), hour = input.Octet();
    const int minute = input.Octet(), second = input.Octet();
    tests::CheckCTimeAgreement(year, month, day, hour, minute, second, signedWord(4));
    const TString<char> elements = input.Octets(input.Octet());
    TString<char> content;
    const std::string_view text = TextOf(input, content);
    tests::CheckCAddressAgreement(text);
    tests::CheckCUserDataAgreement(coding, Octets(elements), Octets(content));
}

void CheckWriting(fuzz::Input& input, unsigned int how) {
    switch (how % 3U) {
    case 0: {
        const TString<char> changes = input.Octets(2U * (input.Octet() % 8U));
        const TString<char> pdu = input.Octets(input.Left());
        tests::CheckCWritesWithChanges(Octets(pdu), Octets(changes));
        break;
    }
    case 1:
        CheckDraft(input);
        break;
    default:
        CheckMakers(input);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const unsigned int how = data[0] / 3U;
    const OctetView rest(data + 1, size - 1);
    fuzz::Input input(rest.data(), rest.size());
    if (data[0] >= 0xC0) {
        CheckWriting(input, data[0]);
        return 0;
    }
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
