// Whole messages read by the standard. Each result is checked before it is timed.
#include <benchmark/benchmark.h>

#include "Messages/Read.h"
#include "Texts.h"

namespace {

using bench::Octets;

struct Sample {
    const char* name;
    Octets pdu;
    std::string text;
};

std::string Utf8(const std::u16string& text) {
    const bool isAscii = text[0] < 0x80;
    std::string utf8;
    for ([[maybe_unused]] const char16_t unit : text)
        utf8 += isAscii ? std::string(1, static_cast<char>(unit)) : "\u4E2D";
    return utf8;
}

/// Part 2 of 3, in Turkish by both shifts.
Octets TurkishPart() {
    constexpr std::size_t headerOctets = 12;
    constexpr std::size_t fillBits = 2;
    constexpr std::size_t headerSeptets = 14;
    const std::u16string letters = bench::Letters(146);
    Octets userData = {0x0B, 0x00, 0x03, 0x2A, 0x03, 0x02, 0x24, 0x01, 0x01, 0x25, 0x01, 0x01};
    static_assert(headerOctets * 8 + fillBits == headerSeptets * 7);
    for (const unsigned char octet : bench::Pack(letters, fillBits))
        userData.push_back(octet);
    return bench::Deliver(0x00, static_cast<unsigned char>(headerSeptets + letters.size()), userData, 0x44);
}

Messages::ReadOptions Told() {
    Messages::ReadOptions options;
    options.serviceCentre = Messages::Presence::Yes;
    options.direction = Messages::Direction::ToMobile;
    return options;
}

bool IsRight(const Messages::Reading& reading, const Sample& sample) {
    const Messages::UserData* const userData = Messages::UserDataOf(reading.tpdu);
    return reading.IsSound() && userData != nullptr && userData->text == sample.text;
}

/// A reading whose memory is used again, as a program does that reads many.
void Again(benchmark::State& state, const Sample& sample, const Messages::ReadOptions& options) {
    Messages::Reading reading;
    Messages::Read(sample.pdu, options, reading);
    if (!IsRight(reading, sample)) {
        state.SkipWithError("read wrongly");
        return;
    }
    for ([[maybe_unused]] const auto _ : state)
        Messages::Read(sample.pdu, options, reading);
}

void Anew(benchmark::State& state, const Sample& sample) {
    const Messages::ReadOptions options = Told();
    for ([[maybe_unused]] const auto _ : state) {
        if (!IsRight(Messages::Read(sample.pdu, options), sample)) {
            state.SkipWithError("read wrongly");
            return;
        }
    }
}

const bool s_registered = [] {
    const Sample samples[] = {{"septets", bench::Deliver160(), Utf8(bench::c_gsm160)},
                              {"UCS2", bench::DeliverUcs2(), Utf8(bench::c_ucs70)},
                              {"Turkish", TurkishPart(), Utf8(bench::Letters(146))}};
    for (const Sample& sample : samples) {
        const auto add = [&](const char* way, auto run) {
            benchmark::RegisterBenchmark((std::string("Reading/") + sample.name + '/' + way).c_str(), run);
        };
        add("told", [sample](benchmark::State& state) { Again(state, sample, Told()); });
        add("guessed", [sample](benchmark::State& state) { Again(state, sample, {}); });
        add("anew", [sample](benchmark::State& state) { Anew(state, sample); });
    }
    return true;
}();

} // namespace
