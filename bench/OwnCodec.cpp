#include <optional>

#include "Codec.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"

namespace bench {
namespace {

using Encoding::Pdu;

class OwnCodec : public Codec {
public:
    explicit OwnCodec(bool reusesDecoder) : m_ReusesDecoder(reusesDecoder) {
        m_Encoder.SetRecipient(L"+12345678901");
        m_Decoder.emplace();
    }

    void Decode(const Octets& pdu) override {
        if (!m_ReusesDecoder)
            m_Decoder.emplace();
        m_Decoder->Decode(new Pdu(pdu.data(), static_cast<unsigned int>(pdu.size())), false, false);
    }

    std::u16string Text() const override { return {m_Decoder->m_Text.begin(), m_Decoder->m_Text.end()}; }

    void Prepare(const std::u16string& text, bool) override { m_Text.assign(text.begin(), text.end()); }

    void Encode() override {
        m_Encoder.RemoveHeader();
        m_Encoder.SetText(m_Text);
        m_Encoder.Encode(m_Pdus);
    }

    std::vector<Octets> UserData() const override {
        constexpr int head = 1 + 1 + 1 + 8 + 1 + 1 + 1; // up to TP-UDL
        std::vector<Octets> parts;
        for (const auto& pdu : m_Pdus)
            parts.emplace_back(pdu->m_Bytes + head, pdu->m_Bytes + pdu->m_Length);
        return parts;
    }

private:
    bool m_ReusesDecoder;
    std::optional<Encoding::PduDecoder> m_Decoder;
    Encoding::PduEncoder m_Encoder{Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT};
    TString<wchar_t> m_Text;
    std::vector<Toolkit::smart_ptr<Pdu>> m_Pdus;
};

} // namespace

std::unique_ptr<Codec> MakeOwnCodec(bool reusesDecoder) {
    return std::make_unique<OwnCodec>(reusesDecoder);
}

} // namespace bench
