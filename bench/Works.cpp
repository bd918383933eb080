// Whole messages. Each codec's result is checked before it is timed.
#include <benchmark/benchmark.h>

#include "Codec.h"

namespace bench {
namespace {

std::u16string Letters(std::size_t count) {
    std::u16string text;
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<char16_t>(u'a' + i % 26);
    return text;
}

/// Septets laid side by side, `startBit` bits above the low end of the first octet.
Octets Pack(const std::u16string& septets, std::size_t startBit) {
    Octets octets((startBit + 7 * septets.size() + 7) / 8);
    for (std::size_t i = 0; i < 7 * septets.size(); ++i) {
        const std::size_t bit = startBit + i;
        octets[bit / 8] =
            static_cast<unsigned char>(octets[bit / 8] | (septets[i / 7] >> (i % 7) & 1) << (bit % 8));
    }
    return octets;
}

Octets BigEndian(const std::u16string& text) {
    Octets octets;
    for (const char16_t unit : text) {
        octets.push_back(static_cast<unsigned char>(unit >> 8));
        octets.push_back(static_cast<unsigned char>(unit));
    }
    return octets;
}

const std::u16string c_gsm160 = Letters(160);
const std::u16string c_gsm1000 = Letters(1000);
const std::u16string c_ucs70(70, u'\u4E2D');

/// From +12345678901 by way of +123456789012.
Octets Deliver(unsigned char dcs, unsigned char udl, const Octets& userData) {
    Octets pdu = {0x07, 0x91, 0x21, 0x43, 0x65, 0x87, 0x09, 0x21, 0x04, 0x0B, 0x91, 0x21, 0x43, 0x65,
                  0x87, 0x09, 0xF1, 0x00, dcs,  0x21, 0x20, 0x31, 0x21, 0x43, 0x65, 0x80, udl};
    pdu.insert(pdu.end(), userData.begin(), userData.end());
    return pdu;
}

void Decode(benchmark::State& state, Codec& codec, const Octets& pdu, const std::u16string& text) {
    codec.Decode(pdu);
    if (codec.Text() != text) {
        state.SkipWithError("decoded wrongly");
        return;
    }
    for ([[maybe_unused]] const auto _ : state)
        codec.Decode(pdu);
}

/// What stands behind TP-UDL in each part; the reference of the header counts as any.
bool IsRight(const std::vector<Octets>& parts, const std::u16string& text, bool isGsm) {
    if (parts.size() == 1)
        return parts[0] == (isGsm ? Pack(text, 0) : BigEndian(text));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].size() < 6)
            return false;
        const Octets body(parts[i].begin() + 6, parts[i].end());
        if (body != Pack(text.substr(153 * i, 153), 1) || parts[i][5] != i + 1)
            return false;
    }
    return parts.size() == (text.size() + 152) / 153;
}

void Encode(benchmark::State& state, Codec& codec, const std::u16string& text, bool isGsm) {
    codec.Prepare(text, isGsm);
    codec.Encode();
    if (!IsRight(codec.UserData(), text, isGsm)) {
        state.SkipWithError("encoded wrongly");
        return;
    }
    for ([[maybe_unused]] const auto _ : state)
        codec.Encode();
}

void W1(benchmark::State& state, Codec& codec) {
    Decode(state, codec, Deliver(0x00, 160, Pack(c_gsm160, 0)), c_gsm160);
}
void W2(benchmark::State& state, Codec& codec) {
    Decode(state, codec, Deliver(0x08, 140, BigEndian(c_ucs70)), c_ucs70);
}
void W3(benchmark::State& state, Codec& codec) {
    Encode(state, codec, c_gsm160, true);
}
void W4(benchmark::State& state, Codec& codec) {
    Encode(state, codec, c_gsm1000, true);
}
void W5(benchmark::State& state, Codec& codec) {
    Encode(state, codec, c_ucs70, false);
}

/// Registers the works one after the other with all codecs in turn, so that each comparison is of one moment.
const bool s_registered = [] {
    const struct {
        const char* name;
        void (*run)(benchmark::State&, Codec&);
    } works[] = {{"W1", W1}, {"W2", W2}, {"W3", W3}, {"W4", W4}, {"W5", W5}};
    const struct {
        const char* name;
        std::shared_ptr<Codec> codec;
    } codecs[] = {
        {"reused", MakeOwnCodec(true)}, {"fresh", MakeOwnCodec(false)}, {"libgammu", MakeGammuCodec()}};
    for (const auto& work : works)
        for (const auto& codec : codecs)
            benchmark::RegisterBenchmark(
                (std::string(work.name) + "/" + codec.name).c_str(),
                [run = work.run, peer = codec.codec](benchmark::State& state) { run(state, *peer); });
    return true;
}();

} // namespace
} // namespace bench
