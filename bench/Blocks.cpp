// Building blocks, beside what the machine needs for the like.
#include <cstring>
#include <mutex>

#include <benchmark/benchmark.h>

#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Encoding/UCS2Encoding.h"
#include "Texts.h"

namespace {

using namespace Encoding;

constexpr std::size_t c_length = 160;

TString<wchar_t> Letters() {
    TString<wchar_t> text;
    for (std::size_t i = 0; i < c_length; ++i)
        text += static_cast<wchar_t>('a' + i % 26);
    return text;
}

const unsigned char* Raw(const TString<wchar_t>& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

template <class Work>
void PerCharacter(benchmark::State& state, Work work) {
    for ([[maybe_unused]] const auto _ : state) {
        work();
        benchmark::ClobberMemory();
    }
    state.counters["per character"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * c_length,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void CopyOfTheText(benchmark::State& state) {
    const TString<wchar_t> text = Letters();
    wchar_t copy[c_length];
    PerCharacter(state, [&] { benchmark::DoNotOptimize(std::memcpy(copy, text.data(), sizeof copy)); });
}
BENCHMARK(CopyOfTheText);

void GetGsmBytesCount(benchmark::State& state) {
    const TString<wchar_t> text = Letters();
    GSMCharSet charSet;
    PerCharacter(state, [&] {
        unsigned int count = 0;
        charSet.GetGsmBytes(Raw(text), 4 * c_length, &count, nullptr);
        benchmark::DoNotOptimize(count);
    });
}
BENCHMARK(GetGsmBytesCount);

void GetGsmBytesFill(benchmark::State& state) {
    const TString<wchar_t> text = Letters();
    GSMCharSet charSet;
    unsigned char codes[c_length];
    unsigned char* out = codes;
    PerCharacter(state, [&] {
        unsigned int count = c_length;
        charSet.GetGsmBytes(Raw(text), 4 * c_length, &count, &out);
    });
}
BENCHMARK(GetGsmBytesFill);

void GsmToUnicode(benchmark::State& state) {
    GSMCharSet charSet;
    const TString<char> codes = charSet.UnicodeToGsmString(Letters());
    PerCharacter(state, [&] {
        benchmark::DoNotOptimize(
            charSet.GsmToUnicode(reinterpret_cast<const unsigned char*>(codes.data()), c_length));
    });
}
BENCHMARK(GsmToUnicode);

void UnicodeToGsmString(benchmark::State& state) {
    const TString<wchar_t> text = Letters();
    const GSMCharSet charSet;
    PerCharacter(state, [&] { benchmark::DoNotOptimize(charSet.UnicodeToGsmString(text)); });
}
BENCHMARK(UnicodeToGsmString);

void ToUCS2(benchmark::State& state) {
    const TString<wchar_t> text = Letters();
    PerCharacter(state, [&] { benchmark::DoNotOptimize(UCS2Encoding::ToUCS2(text)); });
}
BENCHMARK(ToUCS2);

void ToUString(benchmark::State& state) {
    const TString<char> hex = UCS2Encoding::ToUCS2S(Letters());
    PerCharacter(state, [&] { benchmark::DoNotOptimize(UCS2Encoding::ToUString(hex)); });
}
BENCHMARK(ToUString);

void MakingADecoder(benchmark::State& state) {
    for ([[maybe_unused]] const auto _ : state)
        PduDecoder();
}
BENCHMARK(MakingADecoder);

void MakingAnEncoder(benchmark::State& state) {
    for ([[maybe_unused]] const auto _ : state)
        const PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
}
BENCHMARK(MakingAnEncoder);

void MakingACharacterSet(benchmark::State& state) {
    for ([[maybe_unused]] const auto _ : state)
        GSMCharSet();
}
BENCHMARK(MakingACharacterSet);

void ShareTakenAndReleased(benchmark::State& state) {
    const Toolkit::smart_ptr<Pdu> pdu(new Pdu);
    for ([[maybe_unused]] const auto _ : state) {
        const Toolkit::smart_ptr<Pdu> share(pdu);
        benchmark::DoNotOptimize(share.get());
    }
}
BENCHMARK(ShareTakenAndReleased);

void MutexTakenAndReleased(benchmark::State& state) {
    std::mutex mutex;
    for ([[maybe_unused]] const auto _ : state) {
        mutex.lock();
        mutex.unlock();
    }
}
BENCHMARK(MutexTakenAndReleased);

/// Distinct objects on distinct threads: the time for one message should not depend on how many there are.
void DecodingOnThreads(benchmark::State& state) {
    const bench::Octets octets = bench::Deliver160();
    const Toolkit::smart_ptr<Pdu> pdu(new Pdu(octets.data(), static_cast<unsigned int>(octets.size())));
    PduDecoder decoder;
    for ([[maybe_unused]] const auto _ : state)
        decoder.Decode(pdu, false, false);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(DecodingOnThreads)->Threads(1)->Threads(2)->UseRealTime();

void EncodingOnThreads(benchmark::State& state) {
    PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder.SetText(Letters());
    std::vector<Toolkit::smart_ptr<Pdu>> pdus;
    for ([[maybe_unused]] const auto _ : state)
        encoder.Encode(pdus);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(EncodingOnThreads)->Threads(1)->Threads(2)->UseRealTime();

void Encode(benchmark::State& state, PduEncoder& encoder) {
    std::vector<Toolkit::smart_ptr<Pdu>> pdus;
    for ([[maybe_unused]] const auto _ : state)
        encoder.Encode(pdus);
}

/// One part to the 255 that a message can have.
void EncodingByTextLength(benchmark::State& state) {
    PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder.SetText(TString<wchar_t>(static_cast<std::size_t>(state.range(0)), L'a'));
    Encode(state, encoder);
}
BENCHMARK(EncodingByTextLength)
    ->Arg(1)
    ->Arg(153 * 32)
    ->DenseRange(153 * 64, 153 * 255 - 1, 153 * 64)
    ->Arg(153 * 255);

/// A Greek text, with the Greek table selected after others that are looked at first.
void EncodingBySelectedTables(benchmark::State& state) {
    PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    for (int i = 1; i < state.range(0); ++i)
        encoder.AddTranslateTable(static_cast<TranslateTable::TT>(2));
    encoder.AddTranslateTable(TranslateTable::GREEK);
    encoder.SetText(TString<wchar_t>(c_length, L'\u03B1'));
    Encode(state, encoder);
}
BENCHMARK(EncodingBySelectedTables)->Arg(1)->DenseRange(16, 64, 16);

/// A user-data header of so many elements, each of two octets before no data.
void DecodingByHeaderElements(benchmark::State& state) {
    const auto elements = static_cast<std::size_t>(state.range(0));
    bench::Octets userData = {static_cast<unsigned char>(2 * elements)};
    for (std::size_t i = 0; i < elements; ++i)
        userData.insert(userData.end(), {0x70, 0x00});
    const bench::Octets octets =
        bench::Deliver(0x04, static_cast<unsigned char>(userData.size()), userData, 0x44);
    const Toolkit::smart_ptr<Pdu> pdu(new Pdu(octets.data(), static_cast<unsigned int>(octets.size())));
    PduDecoder decoder;
    if (decoder.Decode(pdu, false, false) != 1)
        state.SkipWithError("decoded wrongly");
    for ([[maybe_unused]] const auto _ : state)
        decoder.Decode(pdu, false, false);
}
BENCHMARK(DecodingByHeaderElements)->Arg(1)->DenseRange(16, 64, 16);

} // namespace
