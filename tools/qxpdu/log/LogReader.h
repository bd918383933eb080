// Finds the PDUs in the log of a modem, or in a list of them.
#ifndef QXPDU_LOGREADER_H
#define QXPDU_LOGREADER_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "log/AwaitedPdu.h"
#include "log/Headings.h"

namespace qxpdu {

/// One thing that was found.
struct LogEntry {
    std::size_t line = 0;           ///< where its digits begin; else of its heading
    std::string text;               ///< digits as octets, or a line of a list as it stands; empty where a
                                    ///< heading lacks its PDU, and where it gives a reference
    std::optional<Heading> heading; ///< none in a list
};

/// What became of the lines that were taken in. Every line is counted once.
struct LogCounts {
    std::uint64_t lines = 0;       ///< all of them
    std::uint64_t entries = 0;     ///< lines in which an entry, or a piece of one, stands
    std::uint64_t textModes = 0;   ///< lines that announce a message in text mode
    std::uint64_t passedOver = 0;  ///< what else modems and programs write
    std::uint64_t strayDigits = 0; ///< of those passed over, nothing but hexadecimal digits
    std::uint64_t strayPdus = 0;   ///< of those, sound PDUs
    std::uint64_t forgotten = 0; ///< of those passed over, too many to be kept until it showed what they are
};

/// Takes lines in and gives what stands in them. Where a line of a modem stands in the input, that is a log,
/// and only what a heading announces is a PDU; otherwise every line is one. Until the first line of a modem
/// comes, no more than LOOK_AHEAD bytes of lines are kept; then they are a list if a PDU may stand in them,
/// and forgotten if not.
class LogReader {
public:
    static constexpr std::size_t LOOK_AHEAD = 1U << 16;

    /// Takes in the next line, whatever its line end.
    void Take(std::string line, std::size_t number);

    /// No input waits: gives what can be given.
    void Release();

    /// At the end of the input, gives the rest.
    void Finish();

    /// The next entry, if any is there.
    std::optional<LogEntry> Next();

    bool HasEntries() const { return !m_Entries.empty(); }

    bool IsLog() const { return m_IsLog; }

    const LogCounts& Counts() const { return m_Counts; }

private:
    struct Line {
        std::string text;
        std::size_t number;
    };

    /// A heading that waits for its PDU.
    struct Open {
        Heading heading;
        AwaitedPdu pdu;
        std::size_t line = 0;       ///< of its first digits
        bool isPrefixed = false;    ///< a program wrote something before these
        unsigned int strangers = 0; ///< lines since its last digits that say something else
    };

    void ReadLogLine(std::string_view printed, std::size_t number);
    void ReadSaid(std::string_view said, std::size_t begin, bool isAfterString);
    void ReadRest(std::string_view text);
    void LearnPrefix(std::string_view text, std::string_view digits);
    void ReadBeside(std::string_view text, bool isAfterHeading);
    bool Gather(std::string_view text, bool isWholeLine);
    std::string DigitsFor(Open& open, std::string_view text, bool isWholeLine);
    void Begin(Mark mark, std::string_view prefix);
    void GiveReference(Heading heading);
    void End();
    void GiveList();
    void GiveListed(Line line);
    bool GivePiece(Line piece);
    void GiveEntry(Line piece);
    void Forget();
    bool TakeDumped(const std::string& piece, std::size_t number);
    void EndDump();
    void CountStray(std::string_view text);

    bool m_IsLog = false;
    bool m_IsList = false;   ///< of so much that no more is kept
    std::deque<Line> m_Held; ///< before it is known whether this is a log
    std::size_t m_HeldBytes = 0;
    bool m_MayHoldPdu = false;      ///< one of these
    std::optional<LogEntry> m_Dump; ///< of a list, while its lines come
    std::string m_DumpLine;         ///< the first of them, until another shows that it is one
    std::optional<Open> m_Open;
    std::string m_Prefix;              ///< what a program wrote before the last heading
    std::optional<std::string> m_Lead; ///< and before this line, once one that was printed with it is read
    bool m_IsPrefixed = false;         ///< this line begins as that of the last heading
    std::size_t m_Number = 0;          ///< of the line that is being read
    bool m_HasEntry = false;           ///< in this line
    bool m_HasTextMode = false;        ///< in this line
    std::size_t m_SentLine = 0;        ///< of the last PDU that was typed to be sent
    std::string m_Typed;               ///< digits of the last PDU that was typed and not answered yet
    std::deque<LogEntry> m_Entries;
    LogCounts m_Counts;
};

/// Whether a text that is given as one PDU is a piece of a log.
bool HasHeading(std::string_view text);

} // namespace qxpdu

#endif
