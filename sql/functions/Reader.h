// Reads what SQL gives: PDUs of short messages, and what cell broadcast sends.
#ifndef SQL_READER_H
#define SQL_READER_H

#include <optional>
#include <string>
#include <string_view>

#include "show/Broadcast.h"
#include "show/Message.h"
#include "sql/functions/Values.h"

namespace sql {

/// Reads PDUs, one after the other. A statement asks several functions about one PDU, so the last one is
/// kept. One thread at a time.
class PduReader {
public:
    /// The message is there until the next call. Null where the content is too long to be one. Throws
    /// Misuse for options that are none.
    const show::Message* Read(const Given& given, std::string_view options = {});

private:
    void SetOptions(std::string_view options);
    bool IsLast(const Given& given) const;

    std::string m_OptionWords;
    Messages::ReadOptions m_Options;
    bool m_HasLast = false;
    bool m_IsLastText = false;
    std::string m_Last; ///< content
    show::Message m_Message;
};

/// The same of cell broadcast; keeps nothing. `format` is as CellFormatIn() has it.
std::optional<show::Broadcast> ReadBroadcast(const Given& given, std::string_view format);

} // namespace sql

#endif
