#include "stream/Inputs.h"

#include <array>
#include <iterator>
#include <limits>
#include <utility>

#include "show/CodeUnits.h"

namespace qxpdu {

namespace {

constexpr const char* c_standardInput = "-";

/// A line of a log that is longer is looked through for carriage returns.
constexpr std::size_t c_longLine = 1U << 16;

/// Reads up to the end, keeps at most one byte more than MAX_LINE, and leaves the last line feed out.
std::string ReadAll(std::istream& in) {
    std::string text(Inputs::MAX_LINE + 1, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

} // namespace

Inputs::Inputs(const InputSources& sources, Cut cut) : m_Sources(sources), m_Cut(cut) {
    if (m_Sources.arguments.empty() && m_Sources.files.empty())
        Open(m_Sources.in, {});
}

void Inputs::Open(std::istream& stream, std::string_view file) {
    m_Stream = &stream;
    m_FileName = file;
    m_IsGiven = false;
    m_LineFeeds = 0;
    ++m_StreamsOpened;
}

/// Opens what comes next, unless that is an argument or nothing.
void Inputs::OpenNext() {
    if (m_Argument < m_Sources.arguments.size()) {
        if (m_Sources.arguments[m_Argument] != c_standardInput)
            return;
        ++m_Argument;
        return Open(m_Sources.in, {});
    }
    while (m_Stream == nullptr && m_File < m_Sources.files.size())
        OpenFile(m_Sources.files[m_File++]);
}

void Inputs::OpenFile(const std::string& name) {
    if (name == c_standardInput)
        return Open(m_Sources.in, {});
    m_OpenFile = std::make_unique<FileStream>(name, m_Sources.stop);
    if (m_OpenFile->IsOpen())
        Open(*m_OpenFile, name);
    else
        m_Unreadable.push_back(show::Printable(name));
}

void Inputs::CloseStream() {
    if (m_Stream->bad())
        m_Unreadable.push_back(m_FileName.empty() ? "standard input" : show::Printable(m_FileName));
    m_Stream = nullptr;
    m_OpenFile.reset();
}

/// Reads up to the next line feed, or the end, and keeps at most a piece more than MAX_LINE. Returns false
/// when nothing was left.
bool Inputs::ReadLine(std::string& line) {
    std::array<char, 4096> piece;
    line = std::exchange(m_Rest, {});
    while (m_Stream->getline(piece.data(), piece.size()) || m_Stream->gcount() > 0) {
        const auto read = static_cast<std::size_t>(m_Stream->gcount());
        const bool isCut = m_Stream->fail();             // the piece was full before a line feed came
        const bool hasFeed = !isCut && !m_Stream->eof(); // counted, but not stored
        line.append(piece.data(), hasFeed ? read - 1 : read);
        if (!isCut)
            return true;
        m_Stream->clear(m_Stream->rdstate() & ~std::ios::failbit);
        const std::size_t returned =
            m_Cut == Cut::LogLines && line.size() > c_longLine ? line.rfind('\r') : std::string::npos;
        if (returned != std::string::npos) {
            m_Rest = line.substr(returned + 1);
            line.resize(returned);
            return true;
        }
        if (line.size() > MAX_LINE) {
            m_Stream->ignore(std::numeric_limits<std::streamsize>::max(), '\n');
            return true;
        }
    }
    return !line.empty();
}

bool Inputs::NextLine(Input& input) {
    std::string line;
    const bool isContinued = !m_Rest.empty();
    if (!ReadLine(line))
        return false;
    m_Bytes += line.size() + 1;
    if (!isContinued)
        ++m_LineFeeds;
    ++m_Lines;
    input = {Input::Source::Line, m_LineFeeds, std::move(line), std::nullopt, m_FileName};
    return true;
}

bool Inputs::NextOfStream(Input& input) {
    if (m_Cut != Cut::Whole)
        return NextLine(input);
    if (std::exchange(m_IsGiven, true))
        return false;
    input = {Input::Source::Stream, 0, ReadAll(*m_Stream)};
    return !m_Stream->bad();
}

bool Inputs::Next(Input& input) {
    for (;;) {
        if (m_Stream == nullptr)
            OpenNext();
        if (m_Stream == nullptr)
            break;
        if (NextOfStream(input))
            return true;
        CloseStream();
    }
    if (m_Argument == m_Sources.arguments.size())
        return false;
    const std::string& argument = m_Sources.arguments[m_Argument++];
    ++m_Lines;
    input = {Input::Source::Argument, m_Argument, argument};
    return true;
}

/// Only a reader is told that the stream cannot be read to its end.
bool Inputs::HasStreamEnded() {
    return m_Cut != Cut::Whole && m_Stream->rdbuf()->in_avail() < 0 &&
           m_Stream->peek() == std::istream::traits_type::eof();
}

bool Inputs::IsReady() {
    for (;;) {
        if (m_Stream == nullptr)
            OpenNext();
        if (m_Stream == nullptr)
            return true;
        if (!HasStreamEnded())
            return m_Stream->rdbuf()->in_avail() != 0;
        CloseStream();
    }
}

} // namespace qxpdu
