// What stands below the lines of a message: what is unusual, and what a host of libQX_Encoding gets instead.
#ifndef SHOW_NOTES_H
#define SHOW_NOTES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "show/Lines.h"
#include "show/compare/Comparison.h"

namespace show {

/// "libQX_Encoding m_Text: \"Hello\""
std::string DifferenceText(const RecordMember& member);

constexpr std::string_view c_rejectedText = "libQX_Encoding rejects this PDU";
constexpr std::string_view c_acceptedText =
    "libQX_Encoding decodes this PDU"; ///< which the standard does not

/// The notes that no line has taken yet: "! …" what is unusual, "~ …" what libQX_Encoding gives. Remarks and
/// reading outlive it.
class Notes {
public:
    Notes(const std::vector<Messages::Remark>& remarks, const HostReading& host)
        : m_Remarks(remarks),
          m_Host(host),
          m_IsRemarkShown(remarks.size()),
          m_IsMemberShown(host.members.size()) {}

    /// Those of a field; what libQX_Encoding makes of the text is left to the text.
    std::vector<std::string> Take(Messages::Field field, std::uint32_t octet, std::uint32_t count);

    void TakeMembers(Messages::Field field, std::vector<std::string>& notes);

    /// All others, below the last line.
    void TakeRest(std::vector<Line>& lines);

private:
    void Add(std::size_t i, std::vector<std::string>& notes);

    const std::vector<Messages::Remark>& m_Remarks;
    const HostReading& m_Host;
    std::vector<bool> m_IsRemarkShown;
    std::vector<bool> m_IsMemberShown;
};

} // namespace show

#endif
