// Bytes and allocations of each object and each message, as a table.
#include <cstdio>
#include <functional>

#include "Encoding/CBMDecoder.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Texts.h"
#include "support/Allocations.h"

namespace {

using namespace Encoding;

void Row(const char* name, std::size_t size, const std::function<void()>& work) {
    work(); // what is made once in a process, and room that is kept
    const unsigned long allocations = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    work();
    std::printf("| %s | %s | %lu | %lu |\n", name, size == 0 ? "" : std::to_string(size).c_str(),
                tests::Allocations() - allocations, tests::AllocatedBytes() - bytes);
}

void Decode(PduDecoder& decoder, const bench::Octets& octets) {
    decoder.Decode(new Pdu(octets.data(), static_cast<unsigned int>(octets.size())), false, false);
}

TString<wchar_t> Wide(const std::u16string& text) {
    return {text.begin(), text.end()};
}

void Encode(PduEncoder& encoder, const TString<wchar_t>& text) {
    std::vector<Toolkit::smart_ptr<Pdu>> pdus;
    encoder.RemoveHeader();
    encoder.SetText(text);
    encoder.Encode(pdus);
}

} // namespace

int main() {
    std::puts("| what | size of the object | allocations | bytes allocated |");
    std::puts("|---|---|---|---|");
    Row("GSMCharSet", sizeof(GSMCharSet), [] { const GSMCharSet charSet; });
    Row("PduDecoder", sizeof(PduDecoder), [] { const PduDecoder decoder; });
    Row("CBMDecoder", sizeof(CBMDecoder), [] { const CBMDecoder decoder; });
    Row("PduEncoder", sizeof(PduEncoder),
        [] { const PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT); });
    Row("Pdu in a smart_ptr", sizeof(Pdu), [] { const Toolkit::smart_ptr<Pdu> pdu(new Pdu); });

    PduDecoder decoder;
    const bench::Octets deliver160 = bench::Deliver160();
    const bench::Octets deliverUcs2 = bench::DeliverUcs2();
    Row("W1, decoder reused", 0, [&] { Decode(decoder, deliver160); });
    Row("W2, decoder reused", 0, [&] { Decode(decoder, deliverUcs2); });
    PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder.SetRecipient(L"+12345678901");
    Row("W3, encoder reused", 0, [&, text = Wide(bench::c_gsm160)] { Encode(encoder, text); });
    Row("W4, encoder reused", 0, [&, text = Wide(bench::c_gsm1000)] { Encode(encoder, text); });
    Row("W5, encoder reused", 0, [&, text = Wide(bench::c_ucs70)] { Encode(encoder, text); });
}
