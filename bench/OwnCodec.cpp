#include <optional>

#include "Codec.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Texts.h"
#include "Toolkit/UTF8.h"

namespace bench {
namespace {

using Encoding::Pdu;

class OwnCodec : public Codec {
public:
    OwnCodec(Form form, bool reusesDecoder) : m_Form(form), m_ReusesDecoder(reusesDecoder) {
        m_Encoder.SetRecipient(L"+12345678901");
        m_Decoder.emplace();
    }

    void Prepare(const Octets& pdu) override {
        m_Octets = pdu;
        m_Digits = ToHexadecimal(pdu);
    }

    void Decode() override {
        if (!m_ReusesDecoder)
            m_Decoder.emplace();
        m_Decoder->Decode(m_Form == Form::Hexadecimal
                              ? new Pdu(m_Digits)
                              : new Pdu(m_Octets.data(), static_cast<unsigned int>(m_Octets.size())),
                          false, false);
        if (m_Form != Form::Wide)
            m_Utf8 = Toolkit::UTF8::ToUTF8(m_Decoder->m_Text);
    }

    std::u16string Text() const override {
        return m_Form == Form::Wide ? std::u16string(m_Decoder->m_Text.begin(), m_Decoder->m_Text.end())
                                    : FromUtf8(m_Utf8);
    }

    void Prepare(const std::u16string& text, bool) override {
        m_Wide.assign(text.begin(), text.end());
        m_Utf8 = ToUtf8(text);
    }

    void Encode() override {
        m_Encoder.RemoveHeader();
        if (m_Form == Form::Wide)
            m_Encoder.SetText(m_Wide);
        else
            m_Encoder.SetText(Toolkit::UTF8::ToUNICODE(m_Utf8));
        m_Encoder.Encode(m_Pdus);
        if (m_Form != Form::Hexadecimal)
            return;
        m_Parts.clear();
        for (const auto& pdu : m_Pdus)
            m_Parts.push_back(pdu->GetString());
    }

    std::vector<Octets> UserData() const override {
        constexpr int head = 1 + 1 + 1 + 8 + 1 + 1 + 1; // up to TP-UDL
        std::vector<Octets> parts;
        for (std::size_t i = 0; i < m_Pdus.size(); ++i) {
            const Octets pdu = m_Form == Form::Hexadecimal
                                   ? FromHexadecimal(m_Parts[i])
                                   : Octets(m_Pdus[i]->m_Bytes, m_Pdus[i]->m_Bytes + m_Pdus[i]->m_Length);
            parts.emplace_back(pdu.begin() + head, pdu.end());
        }
        return parts;
    }

private:
    Form m_Form;
    bool m_ReusesDecoder;
    std::optional<Encoding::PduDecoder> m_Decoder;
    Encoding::PduEncoder m_Encoder{Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT};
    Octets m_Octets;
    TString<char> m_Digits;
    TString<char> m_Utf8;
    TString<wchar_t> m_Wide;
    std::vector<Toolkit::smart_ptr<Pdu>> m_Pdus;
    std::vector<TString<char>> m_Parts;
};

} // namespace

std::unique_ptr<Codec> MakeOwnCodec(Form form, bool reusesDecoder) {
    return std::make_unique<OwnCodec>(form, reusesDecoder);
}

} // namespace bench
