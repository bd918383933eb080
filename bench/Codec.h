// What every codec that is measured can do. Preparing a message is not timed, encoding and decoding are.
#ifndef BENCH_CODEC_H
#define BENCH_CODEC_H

#include <memory>
#include <string>
#include <vector>

namespace bench {

using Octets = std::vector<unsigned char>;

/// What a host has in its hands, and wants back: PDUs as octets or as hexadecimal digits, texts in UTF-8 or
/// in the codec's own wide characters.
enum class Form { Wide, Utf8, Hexadecimal };

class Codec {
public:
    Codec() = default;
    Codec(const Codec&) = delete;
    Codec& operator=(const Codec&) = delete;
    virtual ~Codec() = default;

    /// Takes over an SMS-DELIVER with its service-centre address for Decode(), in the form of this codec.
    virtual void Prepare(const Octets& pdu) = 0;
    virtual void Decode() = 0;
    /// The text of the PDU decoded last.
    virtual std::u16string Text() const = 0;

    /// Takes over a text for Encode(), in the form of this codec.
    virtual void Prepare(const std::u16string& text, bool isGsm) = 0;
    /// Encodes the text into SMS-SUBMITs to +12345678901.
    virtual void Encode() = 0;
    /// The user data of the parts encoded last, after TP-UDL.
    virtual std::vector<Octets> UserData() const = 0;
};

/// libQX_Encoding, with one decoder for all PDUs or a fresh one for each.
std::unique_ptr<Codec> MakeOwnCodec(Form form, bool reusesDecoder);

/// libQX_Messages, whose texts are UTF-8. One reading takes all PDUs.
std::unique_ptr<Codec> MakeMessagesCodec(Form form);

/// libgammu, which keeps text in UTF-16.
std::unique_ptr<Codec> MakeGammuCodec(Form form);

} // namespace bench

#endif
