// What cell broadcast sends, shown page by page or joined.
#ifndef QXPDU_CELLPAGES_H
#define QXPDU_CELLPAGES_H

#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "Messages/Cell.h"
#include "commands/Rows.h"
#include "show/JoinedBroadcast.h"
#include "stream/Conversion.h"

namespace qxpdu {

/// What the user wants of it.
struct CellSettings {
    Messages::CellFormat format = Messages::CellFormat::Unknown; ///< what the octets are
    bool asHost = false;                                         ///< by libQX_Encoding instead
    bool isStrict = false;
    bool join = false;
    bool each = false; ///< of the pages that are joined
    RowOptions rows = {};
};

/// Whether the log has the input as a page: after +CBM or, as modems list what they keep, after +CMGL or
/// +CMGR, with all of its octets counted. That may be a message just as well, which it is where the message
/// is sound or the page is not.
bool IsPageOfLog(const Input& input);

/// Reads pages, messages and notifications. What had to be assumed is warned of; in JSON Lines the object
/// says so. Throws InputError where it is no hexadecimal text.
show::ComparedBroadcast ReadCompared(Messages::CellFormat format, const Input& input, Console& console);
show::Broadcast ReadBroadcast(Messages::CellFormat format, const Input& input, Console& console);

/// Of what concerns the text: warnings, or an InputError where the user is strict. In JSON Lines the remarks
/// of the object say so. What a page of several has half of is left to the joined message.
void WarnOfText(const CellSettings& settings, const show::Broadcast& broadcast, const Input& input,
                Console& console);

/// Shows them, and holds what waits for more pages.
class CellPages {
public:
    explicit CellPages(const CellSettings& settings) : m_Settings(settings) {}

    /// May run beside itself on other inputs, unlike what is left to do.
    Afterwards Convert(const Input& input, Console& console);

    /// One input as a row; throws InputError.
    show::Row ReadToRow(const Input& input, Console& console) const;

    /// Shows what still waits for pages.
    void ShowIncomplete(Console& console);

private:
    using Compared = std::shared_ptr<const show::ComparedBroadcast>;
    using Key = std::pair<std::uint16_t, std::uint16_t>; ///< serial number and message identifier

    void Show(const Input& input, const show::ComparedBroadcast& compared, Console& console) const;
    /// By itself, as it is of no use to the newer update.
    void ShowOlder(const Input& input, const show::ComparedBroadcast& compared, Console& console) const;

    /// The message with the inputs that it came in, which are not held any more.
    show::JoinedBroadcast WithSources(const Messages::CellMessage& message);
    void Take(const Input& input, const Compared& compared, Console& console);

    CellSettings m_Settings;
    Messages::CellJoiner m_Joiner;
    std::map<Key, std::vector<show::PageSource>> m_Sources; ///< of the messages that wait for pages
};

} // namespace qxpdu

#endif
