#include "commands/HostEncode.h"

#include <vector>

#include <fmt/format.h>

#include "Encoding/PduEncoder.h"
#include "characters/Unicode.h"
#include "commands/OutgoingText.h"
#include "commands/Parties.h"
#include "show/CodeUnits.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Encoding::PduEncoder;

/// Gives a message of several parts the reference that is wanted.
class ReferringEncoder : public PduEncoder {
public:
    explicit ReferringEncoder(std::uint8_t reference)
        : PduEncoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT) {
        m_ReferenceCounter = static_cast<std::uint8_t>(reference - 1U); // that of the message before
    }
};

void Configure(PduEncoder& encoder, const OutgoingOptions& options) {
    encoder.SetRecipient(FromUtf8(AddressOfNumber(options.to).ToString()));
    encoder.SetSmsc(FromUtf8(AddressOfNumber(options.smsc).ToString()), false);
    if (options.messageClass)
        encoder.SetClass(static_cast<Encoding::MessageClass::Class>(*options.messageClass));
    if (const Messages::Validity validity = options.Validity().validity;
        validity.format == Messages::ValidityFormat::Relative)
        encoder.SetValidityPeriod(int{validity.octets[0]});
    encoder.SetRequireStatusReport(!options.statusReport.empty());
    encoder.SetReject_Duplicates(options.rejectDuplicates);
    encoder.SetReplyPath(options.replyPath);
    encoder.SetMessageReference(options.reference.value_or(0));
    if (options.greek)
        encoder.AddTranslateTable(Encoding::TranslateTable::GREEK);
}

bool IsInGsm(const Toolkit::smart_ptr<Encoding::Pdu>& pdu) {
    Encoding::PduDecoder decoder;
    decoder.Decode(pdu, false, false);
    return decoder.m_Alphabet == Encoding::Alphabet::ALPHABET_GSM7;
}

void AddCautionOfLost(const std::u32string& characters, std::vector<Caution>& cautions) {
    const std::vector<std::size_t> lost = LostWithGreek(characters);
    if (lost.empty())
        return;
    cautions.push_back({"", fmt::format("{} lost, which GSM 7-bit has not; the first is character {}, {}",
                                        show::Counted(lost.size(), "character"), lost.front(),
                                        CodePointName(characters[lost.front() - 1]))});
}

} // namespace

Outgoing MakeOutgoingAsHost(const OutgoingOptions& options, const std::string& text, std::uint8_t reference) {
    const TString<wchar_t> units = FromUtf8(text);
    ReferringEncoder encoder(reference);
    Configure(encoder, options);
    const Pdus pdus = EncodeText(encoder, units);
    Outgoing outgoing;
    for (const auto& pdu : pdus)
        outgoing.pdus.emplace_back(pdu->m_Bytes, pdu->m_Bytes + pdu->m_Length);
    AddCautionsOfOptions(options, outgoing.cautions);
    if (units.empty())
        outgoing.cautions.push_back(CautionOfNoText());
    if (options.greek && IsInGsm(pdus.front()))
        AddCautionOfLost(show::CodePoints(units), outgoing.cautions);
    return outgoing;
}

} // namespace qxpdu
