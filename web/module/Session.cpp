#include "web/module/Session.h"

#include <utility>

namespace qxpdu {

namespace {

/// Where a conversion goes that is not to be done at once; nowhere while that is null.
std::unique_ptr<Conversion>* g_begun = nullptr;

} // namespace

/// In place of the tool's, which has threads: there is one.
int ConvertStream(const ConversionSettings& settings, const Streams& streams, const Converter& converter) {
    auto conversion = std::make_unique<Conversion>(settings, streams, converter);
    if (g_begun != nullptr) {
        *g_begun = std::move(conversion);
        return Console::ALL_GOOD;
    }
    if (settings.threads > 1)
        conversion->TellOfThreads(1);
    for (BatchWork work = conversion->Take(); work && work()(); work = conversion->Take()) {
    }
    return conversion->Finish();
}

void PieceBuffer::Add(std::string_view piece, bool isLast) {
    const auto read = static_cast<std::size_t>(gptr() - eback());
    m_Text.erase(0, read);
    m_Text += piece;
    m_IsLast = isLast;
    const std::size_t whole = isLast ? m_Text.size() : m_Text.rfind('\n') + 1;
    setg(m_Text.data(), m_Text.data(), m_Text.data() + whole);
}

void Session::Run(const PreparedCommand& command, std::string_view input) {
    Clear();
    m_InBuffer.Add(input, true);
    m_Status = command.Run({m_In, m_Out, m_Err});
}

void Session::Begin(const PreparedCommand& command) {
    g_begun = &m_Conversion;
    m_Status = command.Run({m_In, m_Out, m_Err});
    g_begun = nullptr;
}

void Session::Take(std::string_view piece, bool isLast) {
    Clear();
    m_InBuffer.Add(piece, isLast);
    const auto take = [this, isLast] {
        return isLast ? m_Conversion->Take() : m_Conversion->TakeOfWhatCame();
    };
    for (BatchWork work = take(); work && work()(); work = take()) {
    }
    if (isLast)
        m_Status = m_Conversion->Finish();
}

void Session::Clear() {
    m_OutBuffer.Clear();
    m_ErrBuffer.Clear();
}

} // namespace qxpdu
