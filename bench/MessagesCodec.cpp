#include "Codec.h"
#include "Messages/Parts.h"
#include "Messages/Read.h"
#include "Messages/Write.h"
#include "Texts.h"

namespace bench {
namespace {

/// Octets or hexadecimal digits and UTF-8; there is no wide text.
class MessagesCodec : public Codec {
public:
    explicit MessagesCodec(Form form) : m_Form(form) {
        m_Told.serviceCentre = Messages::Presence::Yes;
        m_Told.direction = Messages::Direction::ToMobile;
        m_Cutting.reference = 42;
        Messages::ToNumber("+12345678901", Submit().destination);
    }

    void Prepare(const Octets& pdu) override {
        m_Octets = pdu;
        m_Digits = ToHexadecimal(pdu);
    }

    void Decode() override {
        if (m_Form == Form::Hexadecimal)
            Messages::FromHex(m_Digits, m_Octets);
        Messages::Read(m_Octets, m_Told, m_Reading);
    }

    std::u16string Text() const override { return FromUtf8(Messages::UserDataOf(m_Reading.tpdu)->text); }

    void Prepare(const std::u16string& text, bool) override { m_Text = ToUtf8(text); }

    void Encode() override {
        Messages::CutText cut = Messages::CutIntoParts(m_Text, m_Cutting);
        Submit().coding = cut.coding;
        m_Parts.resize(cut.parts.size());
        m_PartDigits.clear();
        for (std::size_t i = 0; i < cut.parts.size(); ++i) {
            Submit().userData = std::move(cut.parts[i]);
            Messages::Write(m_Tpdu, m_NoServiceCentre, m_Parts[i]);
            if (m_Form == Form::Hexadecimal)
                m_PartDigits.push_back(Messages::ToHex(m_Parts[i].octets));
        }
    }

    std::vector<Octets> UserData() const override {
        constexpr int head = 1 + 1 + 1 + 8 + 1 + 1 + 1; // up to TP-UDL
        std::vector<Octets> parts;
        for (std::size_t i = 0; i < m_Parts.size(); ++i) {
            const Octets pdu =
                m_Form == Form::Hexadecimal ? FromHexadecimal(m_PartDigits[i]) : m_Parts[i].octets;
            parts.emplace_back(pdu.begin() + head, pdu.end());
        }
        return parts;
    }

private:
    Messages::Submit& Submit() { return std::get<Messages::Submit>(m_Tpdu); }

    Form m_Form;
    Octets m_Octets;
    std::string m_Digits;
    Messages::ReadOptions m_Told;
    Messages::Reading m_Reading;
    std::string m_Text;
    Messages::CutOptions m_Cutting;
    Messages::Tpdu m_Tpdu = Messages::Submit(); // what Write() takes, kept instead of copied for each part
    std::optional<Messages::Address> m_NoServiceCentre = Messages::Address();
    std::vector<Messages::Written> m_Parts;
    std::vector<std::string> m_PartDigits;
};

} // namespace

std::unique_ptr<Codec> MakeMessagesCodec(Form form) {
    return std::make_unique<MessagesCodec>(form);
}

} // namespace bench
