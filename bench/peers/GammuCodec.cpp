#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

extern "C" {
#include <gammu.h>
}

#include "Codec.h"
#include "Texts.h"

namespace bench {
namespace {

/// UTF-16, big-endian, ended by a zero.
Octets Utf16(const std::u16string& text) {
    Octets octets;
    for (const char16_t unit : text + u'\0') {
        octets.push_back(static_cast<unsigned char>(unit >> 8));
        octets.push_back(static_cast<unsigned char>(unit));
    }
    return octets;
}

class GammuCodec : public Codec {
public:
    explicit GammuCodec(Form form)
        : m_Form(form), m_Machine(GSM_AllocStateMachine()), m_Debug(GSM_GetGlobalDebug()) {
        // Encoding asks the phone's driver what it can do, so there has to be one: the one that has no phone.
        // The connection fails for want of its folder, which is all right.
        GSM_Config* config = GSM_GetConfig(m_Machine, 0);
        std::strcpy(config->Model, "dummy");
        config->Device = strdup("/nonexistent");
        config->Connection = strdup("none");
        config->UseGlobalDebugFile = FALSE;
        GSM_SetConfigNum(m_Machine, 1);
        GSM_InitConnection(m_Machine, 1);

        GSM_SetDefaultSMSData(&m_Single);
        const Octets number = Utf16(u"+12345678901");
        std::copy(number.begin(), number.end(), m_Single.Number);
        m_Single.PDU = SMS_Submit;
        m_Single.SMSC.Validity.Format = SMS_Validity_NotAvailable;
        m_Single.Class = -1;
    }

    ~GammuCodec() override { GSM_FreeStateMachine(m_Machine); }

    void Prepare(const Octets& pdu) override {
        m_Octets = pdu;
        m_Octets.push_back(0); // DecodeHexBin() ends what it writes by a zero
        m_Digits = ToHexadecimal(pdu);
    }

    void Decode() override {
        if (m_Form == Form::Hexadecimal)
            DecodeHexBin(m_Octets.data(), reinterpret_cast<const unsigned char*>(m_Digits.data()),
                         m_Digits.size());
        size_t end = 0;
        GSM_DecodePDUFrame(m_Debug, &m_Received, m_Octets.data(), m_Octets.size() - 1, &end, TRUE);
        if (m_Form != Form::Wide) {
            m_Utf8.resize(c_longestUtf8 * UnicodeLength(m_Received.Text));
            EncodeUTF8(m_Utf8.data(), m_Received.Text);
            m_Utf8.resize(std::strlen(m_Utf8.c_str()));
        }
    }

    std::u16string Text() const override {
        if (m_Form != Form::Wide)
            return FromUtf8(m_Utf8);
        std::u16string text;
        for (std::size_t i = 0; i < UnicodeLength(m_Received.Text); ++i)
            text += static_cast<char16_t>(m_Received.Text[2 * i] << 8 | m_Received.Text[2 * i + 1]);
        return text;
    }

    void Prepare(const std::u16string& text, bool isGsm) override {
        m_IsLong = text.size() > (isGsm ? 160 : 70);
        m_Text = Utf16(text);
        m_Utf8 = ToUtf8(text);
        m_Single.Coding = isGsm ? SMS_Coding_Default_No_Compression : SMS_Coding_Unicode_No_Compression;
        if (!m_IsLong)
            std::copy(m_Text.begin(), m_Text.end(), m_Single.Text);
    }

    void Encode() override {
        m_Frames.clear();
        if (m_Form != Form::Wide)
            DecodeUTF8(m_IsLong ? m_Text.data() : m_Single.Text, m_Utf8.data(), m_Utf8.size());
        if (!m_IsLong) {
            EncodeFrame(m_Single);
            return;
        }
        GSM_ClearMultiPartSMSInfo(&m_Info);
        m_Info.Class = -1;
        m_Info.EntriesNum = 1;
        m_Info.UnicodeCoding = FALSE;
        m_Info.Entries[0].ID = SMS_ConcatenatedTextLong;
        m_Info.Entries[0].Buffer = m_Text.data();
        GSM_EncodeMultiPartSMS(m_Debug, &m_Info, &m_Parts);
        for (int i = 0; i < m_Parts.Number; ++i) {
            std::memcpy(m_Parts.SMS[i].Number, m_Single.Number, sizeof m_Single.Number);
            m_Parts.SMS[i].PDU = SMS_Submit;
            EncodeFrame(m_Parts.SMS[i]);
        }
    }

    std::vector<Octets> UserData() const override {
        std::vector<Octets> parts;
        for (const Frame& frame : m_Frames)
            parts.emplace_back(frame.octets + PHONE_SMSSubmit.Text, frame.octets + frame.length);
        return parts;
    }

private:
    struct Frame {
        unsigned char octets[256];
        int length;
        char digits[2 * 256 + 1];
    };

    void EncodeFrame(GSM_SMSMessage& message) {
        Frame& frame = m_Frames.emplace_back();
        frame.length = 0;
        PHONE_EncodeSMSFrame(m_Machine, &message, frame.octets, PHONE_SMSSubmit, &frame.length, TRUE);
        if (m_Form == Form::Hexadecimal)
            EncodeHexBin(frame.digits, frame.octets, static_cast<size_t>(frame.length));
    }

    static constexpr std::size_t c_longestUtf8 = 4; ///< octets that it may write for a unit

    Form m_Form;
    GSM_StateMachine* m_Machine;
    GSM_Debug_Info* m_Debug;
    GSM_SMSMessage m_Received{};
    GSM_SMSMessage m_Single{};
    Octets m_Octets;
    std::string m_Digits;
    std::string m_Utf8;
    Octets m_Text;
    bool m_IsLong = false;
    GSM_MultiPartSMSInfo m_Info{};
    GSM_MultiSMSMessage m_Parts{};
    std::vector<Frame> m_Frames;
};

} // namespace

std::unique_ptr<Codec> MakeGammuCodec(Form form) {
    return std::make_unique<GammuCodec>(form);
}

} // namespace bench
