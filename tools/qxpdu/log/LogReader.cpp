#include "log/LogReader.h"

#include <algorithm>
#include <utility>

#include "characters/Dump.h"
#include "characters/Letters.h"
#include "log/Digits.h"
#include "log/Printed.h"

namespace qxpdu {

namespace {

constexpr unsigned int c_mostStrangers = 16;
constexpr std::string_view c_utf16Marks[] = {"\xFF\xFE", "\xFE\xFF"}; ///< of either byte order

bool HasAlphanumeric(std::string_view text) {
    return std::any_of(text.begin(), text.end(), IsAlphanumeric);
}

/// What a program wrote before lines of a modem that it printed as one; empty where that cannot be told.
std::string LeadOf(std::string_view said) {
    std::string_view first = said.substr(0, said.find_first_of("+^\n"));
    const std::size_t quotation = first.find_last_of("'\"");
    if (quotation != std::string_view::npos)
        first = first.substr(0, quotation + 1);
    return first.empty() || IsAlphanumeric(first.back()) ? std::string() : std::string(first);
}

bool IsOfModemPrinted(std::string_view printed) {
    const std::string said = Unprinted(printed);
    for (std::size_t begin = 0; begin <= said.size();) {
        const std::size_t end = std::min(said.find('\n', begin), said.size());
        if (IsOfModem(std::string_view(said).substr(begin, end - begin)))
            return true;
        begin = end + 1;
    }
    return false;
}

} // namespace

void LogReader::Take(std::string line, std::size_t number) {
    ++m_Counts.lines;
    if (m_IsLog)
        return ReadLogLine(line, number);
    const std::string_view core = Core(line);
    const bool isDigits = !core.empty() && AreHexDigits(core);
    if (m_IsList && isDigits && core.size() == line.size() && line.size() > c_longestOffset) {
        ++m_Counts.entries;
        return GiveEntry({std::move(line), number}); // as most lines of lists
    }
    if (!isDigits && IsOfModemPrinted(line)) {
        m_IsLog = true;
        EndDump();
        m_Counts.passedOver += m_Held.size();
        for (const Line& held : m_Held)
            CountStray(held.text);
        m_Held.clear();
        return ReadLogLine(line, number);
    }
    m_HeldBytes += line.size() + sizeof(Line);
    m_MayHoldPdu = m_MayHoldPdu || (!IsComment(line) && MayBePdu(line));
    m_Held.push_back({std::move(line), number});
    if (m_IsList || m_HeldBytes > LOOK_AHEAD)
        m_MayHoldPdu ? GiveList() : Forget();
}

void LogReader::Release() {
    if (m_MayHoldPdu)
        GiveList();
    if (m_Dump && AwaitedPdu().IsSound(m_Dump->text))
        EndDump();
    if (m_Open && m_Open->pdu.IsSound())
        End();
}

void LogReader::Finish() {
    GiveList();
    EndDump();
    End();
}

std::optional<LogEntry> LogReader::Next() {
    if (m_Entries.empty())
        return std::nullopt;
    LogEntry entry = std::move(m_Entries.front());
    m_Entries.pop_front();
    return entry;
}

void LogReader::GiveList() {
    m_IsList = m_IsList || !m_Held.empty();
    for (Line& line : m_Held)
        GiveListed(std::move(line));
    m_Held.clear();
}

void LogReader::Forget() {
    m_Counts.passedOver += m_Held.size();
    m_Counts.forgotten += m_Held.size();
    m_Held.clear();
    m_HeldBytes = 0;
}

/// Lines without a letter or digit, a lone prompt for one, and comments are none of the list. Carriage
/// returns alone end lines as well.
void LogReader::GiveListed(Line line) {
    for (const std::string_view mark : c_utf16Marks) {
        if (line.text.starts_with(mark))
            line.text.erase(0, mark.size());
    }
    if (line.text.find('\0') != std::string::npos)
        std::erase(line.text, '\0');
    bool hasEntry = false;
    std::size_t begin = 0;
    for (std::size_t end = line.text.find('\r'); end != std::string::npos;
         end = line.text.find('\r', begin)) {
        hasEntry = GivePiece({line.text.substr(begin, end - begin), line.number}) || hasEntry;
        begin = end + 1;
    }
    line.text.erase(0, begin);
    hasEntry = GivePiece(std::move(line)) || hasEntry;
    ++(hasEntry ? m_Counts.entries : m_Counts.passedOver);
}

/// False where it is none of the list.
bool LogReader::GivePiece(Line piece) {
    if (!HasAlphanumeric(piece.text) || IsComment(piece.text))
        return false;
    if (!TakeDumped(piece.text, piece.number))
        GiveEntry(std::move(piece));
    return true;
}

/// It is none of a dump.
void LogReader::GiveEntry(Line piece) {
    EndDump();
    m_Entries.push_back({piece.number, std::move(piece.text), std::nullopt});
}

/// False where the line is none of a dump.
bool LogReader::TakeDumped(const std::string& piece, std::size_t number) {
    constexpr std::size_t c_digitsInOctet = 2;
    const std::size_t octets = m_Dump ? m_Dump->text.size() / c_digitsInOctet : 0;
    if (m_Dump && EndsDump(piece, octets)) {
        m_DumpLine.clear();
        EndDump();
        return true;
    }
    std::optional<DumpLine> line = ReadDumpLine(piece, octets);
    if (!line)
        line = ReadDumpLine(piece, 0);
    if (!line || (line->offset != 0 && line->offset != octets))
        return false;
    if (line->offset == 0) {
        EndDump();
        m_Dump = LogEntry{number, {}, std::nullopt};
    }
    m_DumpLine = line->isBare && line->offset == 0 ? piece : std::string();
    m_Dump->text += line->digits;
    if (m_Dump->text.size() > LOOK_AHEAD)
        EndDump();
    return true;
}

void LogReader::EndDump() {
    if (!m_Dump)
        return;
    if (!m_DumpLine.empty())
        m_Dump->text = std::exchange(m_DumpLine, {});
    m_Entries.push_back(*std::exchange(m_Dump, std::nullopt));
}

/// A line that was passed over. What a modem repeats of a PDU that was typed is none by itself.
void LogReader::CountStray(std::string_view text) {
    const std::string_view core = Core(text);
    if (core.empty() || !AreHexDigits(core) || core == m_Typed)
        return;
    ++m_Counts.strayDigits;
    if (AwaitedPdu().IsSound(core))
        ++m_Counts.strayPdus;
}

void LogReader::ReadLogLine(std::string_view printed, std::size_t number) {
    m_Number = number;
    m_HasTextMode = false;
    bool hasEntry = false;
    const std::string said = Unprinted(printed);
    m_Lead.reset();
    const std::optional<std::size_t> prefix =
        EndOfPrefix(std::string_view(said).substr(0, said.find('\n')), m_Prefix);
    m_IsPrefixed = prefix.has_value();
    for (std::size_t begin = 0; begin <= said.size();) {
        const std::size_t end = std::min(said.find('\n', begin), said.size());
        // What a program prints after a string is none of it: "+CMT: ,24\r\n", 4096) = 14
        const bool isAfterString = begin > 0 && (said[begin] == '"' || said[begin] == '\'');
        const std::string_view line = std::string_view(said).substr(begin, end - begin);
        const std::size_t words = begin == 0 ? prefix.value_or(0) : 0;
        m_HasEntry = false;
        ReadSaid(line, words, isAfterString);
        hasEntry = hasEntry || m_HasEntry;
        if (!m_HasEntry && !m_HasTextMode)
            CountStray(line.substr(words));
        if (begin == 0)
            m_Lead = LeadOf(said);
        begin = end + 1;
    }
    if (hasEntry)
        ++m_Counts.entries;
    else
        ++(m_HasTextMode ? m_Counts.textModes : m_Counts.passedOver);
}

/// One line of the modem, after what a program wrote before it. It may hold several headings, each with its
/// PDU after it.
void LogReader::ReadSaid(std::string_view said, std::size_t begin, bool isAfterString) {
    std::size_t at = 0;
    while (std::optional<Mark> mark = FindMark(said, at)) {
        ReadBeside(said.substr(at, mark->begin - at), at > 0);
        at = mark->end;
        Begin(std::move(*mark), m_Lead ? *m_Lead : said.substr(0, mark->begin));
    }
    const std::string_view rest = said.substr(at > 0 ? at : begin);
    if (at > 0 || isAfterString)
        ReadBeside(rest, !isAfterString);
    else if (m_Open)
        ReadRest(rest);
    if (EndsAnswer(rest))
        m_Typed.clear();
    if (EndsInError(rest))
        m_SentLine = 0;
}

/// What stands in a line beside a heading: strings of a list, or columns, each with a line in it. Before the
/// first heading of a line that may be what a program wrote there.
void LogReader::ReadBeside(std::string_view text, bool isAfterHeading) {
    constexpr std::string_view c_bounds = "'\"|";
    while (m_Open && !text.empty()) {
        const std::size_t bound = std::min(text.find_first_of(c_bounds), text.size());
        const std::string_view piece = text.substr(0, bound);
        if (isAfterHeading && EndsAnswer(piece))
            End();
        else if (HasAlphanumeric(piece))
            Gather(piece, isAfterHeading && !m_Open->pdu.IsEmpty());
        text.remove_prefix(std::min(bound + 1, text.size()));
    }
}

/// A line without a heading, while one waits for its PDU.
void LogReader::ReadRest(std::string_view text) {
    if (!HasAlphanumeric(text) || IsUnasked(text))
        return;
    // What the modem says unasked may come while it answers something else.
    const bool isOfAnswer = !m_Open->heading.isUnasked || !m_Open->pdu.IsEmpty();
    if (EndsAnswer(text) && isOfAnswer) {
        ReadBeside(text, true);
        return End();
    }
    if (Gather(text, true))
        return;
    if (m_Open->pdu.IsSound() || ++m_Open->strangers > c_mostStrangers)
        End();
}

/// Takes digits that belong to the open heading; false where there are none.
bool LogReader::Gather(std::string_view text, bool isWholeLine) {
    Open& open = *m_Open;
    AwaitedPdu& pdu = open.pdu;
    const std::string digits = DigitsFor(open, text, isWholeLine);
    if (digits.empty())
        return false;
    m_HasEntry = true;
    if (pdu.IsEmpty()) {
        open.line = m_Number;
        LearnPrefix(text, digits);
        open.isPrefixed = m_IsPrefixed && !m_Prefix.empty();
    }
    pdu.Add(digits);
    open.strangers = 0;
    const bool isTyped = text.find(c_endOfTyping) != std::string_view::npos;
    if (isTyped || pdu.IsFull() || pdu.IsComplete() || (pdu.IsTooLong() && pdu.IsSound()))
        End();
    return true;
}

/// Where a line has the whole PDU, what came before it was none of it, and is left out.
std::string LogReader::DigitsFor(Open& open, std::string_view text, bool isWholeLine) {
    const Beside beside = isWholeLine ? Beside::Nothing : Beside::Words;
    AwaitedPdu& pdu = open.pdu;
    const bool mayBeOthers = !pdu.IsEmpty() && (pdu.IsSound() || (open.isPrefixed && !m_IsPrefixed));
    std::string digits = DigitsIn(text, mayBeOthers ? Beside::Others : beside, pdu);
    if (pdu.IsEmpty() || pdu.IsWhole(digits))
        return digits;
    AwaitedPdu alone(open.heading);
    std::string whole = DigitsIn(text, beside, alone);
    if (!alone.IsWhole(whole))
        return digits;
    CountStray(pdu.Digits());
    pdu = std::move(alone);
    return whole;
}

/// A modem's own line before the PDU has no prefix where a program writes the time only before some lines.
void LogReader::LearnPrefix(std::string_view text, std::string_view digits) {
    const std::size_t begin = text.find(digits);
    if (m_Prefix.empty() && begin != std::string_view::npos)
        m_Prefix = text.substr(0, begin);
}

/// A command that stands in the log twice, as it was sent and as the modem repeats it, is one: the first goes
/// without a PDU.
void LogReader::Begin(Mark mark, std::string_view prefix) {
    if (mark.kind == Mark::Kind::Notice)
        return;
    const Heading& heading = mark.heading;
    End();
    m_HasTextMode = m_HasTextMode || mark.kind == Mark::Kind::TextMode;
    if (heading.isSent)
        m_SentLine = 0;
    if (mark.kind != Mark::Kind::Heading)
        return;
    mark.heading.line = m_Number;
    if (heading.kind == Heading::Kind::Reference)
        return GiveReference(std::move(mark.heading));
    m_Prefix = prefix;
    m_IsPrefixed = true;
    AwaitedPdu pdu(heading);
    m_Open = Open{std::move(mark.heading), std::move(pdu), m_Number};
}

/// The reference goes to the message that was sent last; a report that stands beside it is an entry of its
/// own.
void LogReader::GiveReference(Heading heading) {
    m_HasEntry = true;
    heading.sentLine = std::exchange(m_SentLine, 0);
    m_Typed.clear();
    std::string digits = std::exchange(heading.digits, {});
    m_Entries.push_back({m_Number, {}, heading});
    if (digits.empty())
        return;
    heading.kind = Heading::Kind::Acknowledgement;
    m_Entries.push_back({m_Number, std::move(digits), std::move(heading)});
}

/// Gives what has come for the open heading. A command may go without, as nothing need have been typed, and
/// what the modem repeats of it is the same again.
void LogReader::End() {
    if (!m_Open)
        return;
    Open open = *std::exchange(m_Open, std::nullopt);
    const std::string& digits = open.pdu.Digits();
    if (open.heading.isTyped) {
        if (digits.empty() || digits == m_Typed)
            return;
        m_Typed = digits;
    }
    if (open.heading.isSent)
        m_SentLine = open.line;
    const std::size_t line = digits.empty() ? open.heading.line : open.line;
    m_Entries.push_back({line, digits, std::move(open.heading)});
}

bool HasHeading(std::string_view text) {
    const std::string said = Unprinted(text);
    for (auto mark = FindMark(said, 0); mark; mark = FindMark(said, mark->end)) {
        if (mark->kind == Mark::Kind::Heading)
            return true;
    }
    return false;
}

} // namespace qxpdu
