// Whole messages. Each codec's result is checked before it is timed.
#include <benchmark/benchmark.h>

#include "Codec.h"
#include "Texts.h"

namespace bench {
namespace {

void Decode(benchmark::State& state, Codec& codec, const Octets& pdu, const std::u16string& text) {
    codec.Prepare(pdu);
    codec.Decode();
    if (codec.Text() != text) {
        state.SkipWithError("decoded wrongly");
        return;
    }
    for ([[maybe_unused]] const auto _ : state)
        codec.Decode();
}

/// What stands after TP-UDL in each part; the reference of the header counts as any.
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
    Decode(state, codec, Deliver160(), c_gsm160);
}
void W2(benchmark::State& state, Codec& codec) {
    Decode(state, codec, DeliverUcs2(), c_ucs70);
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
        bool decodes;
    } works[] = {{"W1", W1, true}, {"W2", W2, true}, {"W3", W3, false}, {"W4", W4, false}, {"W5", W5, false}};
    const struct {
        const char* name;
        Form form;
    } forms[] = {{"wide", Form::Wide}, {"octets", Form::Utf8}, {"hexadecimal", Form::Hexadecimal}};
    for (const auto& work : works) {
        for (const auto& form : forms) {
            const auto add = [&](const char* codec, std::shared_ptr<Codec> peer) {
                benchmark::RegisterBenchmark(
                    (std::string(work.name) + "/" + form.name + "/" + codec).c_str(),
                    [run = work.run, peer](benchmark::State& state) { run(state, *peer); });
            };
            add("reused", MakeOwnCodec(form.form, true));
            if (work.decodes)
                add("fresh", MakeOwnCodec(form.form, false));
            if (form.form != Form::Wide)
                add("Messages", MakeMessagesCodec(form.form));
            add("libgammu", MakeGammuCodec(form.form));
        }
    }
    return true;
}();

} // namespace
} // namespace bench
