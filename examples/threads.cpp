// Decoding on several threads. Nothing is shared but the PDUs, which are only read, and a counter; each
// thread makes its own decoders, so that no lock is needed.
#include <atomic>
#include <cstddef>
#include <iostream>
#include <thread>
#include <vector>

#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Toolkit/UTF8.h"

namespace {

using Pdus = std::vector<Toolkit::smart_ptr<Encoding::Pdu>>;

Pdus Messages(std::size_t count) {
    Encoding::PduEncoder encoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder.SetRecipient(L"+4179123");
    Pdus all;
    for (std::size_t number = 1; number <= count; ++number) {
        encoder.SetText(L"message " + std::to_wstring(number));
        Pdus one;
        encoder.Encode(one);
        all.push_back(one.front());
    }
    return all;
}

/// Takes one PDU after the other until none is left. Each result has a place of its own.
void Decode(const Pdus& pdus, std::atomic<std::size_t>& next, std::vector<TString<wchar_t>>& texts) {
    for (std::size_t index = next++; index < pdus.size(); index = next++) {
        Encoding::PduDecoder decoder;
        if (decoder.Decode(pdus[index], false, false) == 1)
            texts[index] = decoder.m_Text;
    }
}

} // namespace

int main() {
    const Pdus pdus = Messages(10000);
    std::vector<TString<wchar_t>> texts(pdus.size());
    std::atomic<std::size_t> next{0};
    constexpr std::size_t c_threads = 4;
    std::vector<std::thread> threads;
    threads.reserve(c_threads);
    for (std::size_t thread = 0; thread < c_threads; ++thread)
        threads.emplace_back([&] { Decode(pdus, next, texts); });
    for (std::thread& thread : threads)
        thread.join();

    std::size_t right = 0;
    for (std::size_t index = 0; index < texts.size(); ++index)
        right += texts[index] == L"message " + std::to_wstring(index + 1) ? 1U : 0U;
    std::cout << right << " of " << texts.size() << " texts are right, the last is \""
              << Toolkit::UTF8::ToUTF8(texts.back()) << "\"\n";
}
