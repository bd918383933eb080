// How the commands decode and inspect read a PDU.
#ifndef QXPDU_READING_H
#define QXPDU_READING_H

#include <optional>
#include <string>
#include <vector>

#include "Messages/Cell.h"
#include "commands/Options.h"
#include "show/compare/Comparison.h"
#include "stream/Conversion.h"

namespace qxpdu {

/// What the user says of the PDUs.
struct ReadingOptions : ConversionOptions {
    bool noSmsc = false;
    std::string smsc; ///< "yes", "no", or empty where the octets tell
    bool ignoreTimeZone = false;
    std::string direction; ///< "to-mobile", "from-mobile", or empty where the octets tell
    bool asHost = false;   ///< by libQX_Encoding instead
    bool isStrict = false;
};

/// Adds the options of both commands; --ignore-time-zone is none of them.
void AddReading(const Command& command, ReadingOptions& options);

/// Some of them by themselves.
void AddHostReading(const Command& command, bool& asHost);
void AddStrict(const Command& command, bool& isStrict);

/// Adds --type.
void AddCellFormat(const Command& command, Messages::CellFormat& format);

/// Reads a PDU by the standard, as it makes sense. What had to be assumed is warned of; in JSON Lines the
/// object says so. Throws InputError where it is no hexadecimal text. A free SIM record is nothing but a
/// warning, unless libQX_Encoding is to read it.
std::optional<show::Message> ReadMessage(const ReadingOptions& options, const Input& input, Console& console);

/// Warns of what had to be assumed. In JSON Lines the object says so.
void TellWarnings(const std::vector<std::string>& warnings, const Input& input, Console& console);

/// Warns of a remark, or throws InputError where the user is strict. In JSON Lines the object says so.
void TellRemark(const Messages::Remark& remark, bool isStrict, const Input& input, Console& console);

/// Says why it cannot be read, and whether libQX_Encoding takes it nonetheless.
void ShowFault(const Messages::Fault& fault, const std::vector<std::string>& warnings,
               const show::HostReading& host, const Input& input, Console& console);

/// Shows the record of libQX_Encoding.
void ShowRecord(const show::Message& message, const Input& input, Console& console);

/// Of octets after the PDU, where no remarks are shown.
void WarnOfSurplus(const show::Message& message, const Input& input, Console& console);

/// Of what concerns the text: warnings, or an InputError where the user is strict. In JSON Lines the remarks
/// of the object say so. Characters that a part of a message has half of are left to the joined message.
void WarnOfText(const ReadingOptions& options, const show::Message& message, bool isPart, const Input& input,
                Console& console);

} // namespace qxpdu

#endif
