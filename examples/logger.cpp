// A host with its own logger: the library's lines go where the host's own do.
#include <cstdlib>
#include <iostream>
#include <mutex>

#include "Encoding/TextDecoder.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"

namespace {

/// Gets each line piece by piece and writes it whole. From the begin of a line to its end the logger belongs
/// to one thread, but a line that takes longer than a second is taken over by the next: two threads may write
/// pieces at once then, and their lines may mingle.
class HostLogger : public Toolkit::ILogger {
public:
    explicit HostLogger(int level) : ILogger(level) {}

    void Write(const TString<wchar_t>& text) override {
        const std::lock_guard<std::mutex> guard(m_Mutex);
        m_Line += text;
        if (text != c_strLogToken3)
            return;
        std::cout << "host: " << Toolkit::UTF8::ToUTF8(m_Line);
        m_Line.clear();
    }

private:
    std::mutex m_Mutex; ///< guards the line
    TString<wchar_t> m_Line;
};

} // namespace

int main() {
    constexpr int c_everything = 2;
    *Toolkit::ILogger::s_pInstance = new HostLogger(c_everything);

    const Encoding::TextDecoder decoder(L"00480069", 2); // writes a line of severity 2
    std::cout << Toolkit::UTF8::ToUTF8(decoder.m_DecodedText) << '\n';

    (*Toolkit::ILogger::s_pInstance)->SetLevel(1);
    const Encoding::TextDecoder quiet(L"00480069", 2);

    // A line of the host's own, of the same form.
    using Toolkit::ILogger;
    using Toolkit::LogSeverity;
    using Toolkit::SetSeverity;
    **ILogger::s_pInstance << SetSeverity(1) << LogSeverity(1) << ILogger::c_strLogToken1
                           << ILogger::GetTime().c_str() << ILogger::c_strLogToken2 << "done after " << 2
                           << " texts" << ILogger::c_strLogToken3;
    return EXIT_SUCCESS;
}
