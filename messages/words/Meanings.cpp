// Sentences for values that say several things at once.
#include "Messages/Words.h"

#include <utility>

#include "words/Findings.h"
#include "words/Sentences.h"

namespace Messages {
namespace {

/// Things said, with commas between them.
class Enumeration {
public:
    explicit Enumeration(std::string_view first) : m_Text(first) {}
    void Add(std::string_view next) {
        m_Text += ", ";
        m_Text += next;
    }
    std::string Take() { return std::move(m_Text); }

private:
    std::string m_Text;
};

std::string MeaningOf(const WaitingIndication& waiting) {
    std::string text(waiting.isActive ? "" : "no ");
    text += waiting.type == WaitingType::Other ? "other message" : NameOf(waiting.type);
    text += waiting.type == WaitingType::Voice ? " mail waiting" : " waiting";
    return text + (waiting.isStored ? ", message kept" : ", message may be discarded");
}

/// In the largest units: "3 hours", "12 hours 30 minutes".
std::string Duration(std::uint32_t seconds) {
    struct Unit {
        std::uint32_t seconds;
        std::string_view name;
    };
    constexpr Unit units[] = {
        {604800, "week"}, {86400, "day"}, {3600, "hour"}, {60, "minute"}, {1, "second"}};
    std::string text;
    for (const Unit& unit : units) {
        // Weeks are said only where there is nothing but weeks.
        const bool isWhole = seconds % unit.seconds == 0;
        if (seconds < unit.seconds || (unit.name == "week" && !isWhole))
            continue;
        text += (text.empty() ? "" : " ") + Counted(seconds / unit.seconds, unit.name);
        seconds %= unit.seconds;
    }
    return text.empty() ? Counted(0, "second") : text;
}

} // namespace

std::string MeaningOf(const DataCoding& coding) {
    Enumeration said(NameOf(coding.alphabet));
    if (coding.isCompressed)
        said.Add("compressed");
    if (coding.messageClass)
        said.Add("class " + std::to_string(*coding.messageClass) + ": " +
                 std::string(MeaningOfClass(*coding.messageClass)));
    if (coding.waiting)
        said.Add(MeaningOf(*coding.waiting));
    if (coding.IsAutomaticDeletion())
        said.Add("deleted after it is read");
    if (coding.isReserved)
        said.Add("reserved");
    return said.Take();
}

std::string MeaningOf(const Validity& validity) {
    if (validity.format == ValidityFormat::None)
        return "none";
    if (validity.format == ValidityFormat::Absolute) {
        const Timestamp time = validity.Absolute();
        if (!time.isValid)
            return "absolute, no time";
        return "absolute, " + time.ToString();
    }
    const bool isRelative = validity.format == ValidityFormat::Relative;
    Enumeration said(isRelative ? "relative" : "enhanced");
    if (const auto seconds = validity.Seconds())
        said.Add(Duration(*seconds));
    else
        said.Add("no period");
    if (validity.IsSingleShot())
        said.Add("single shot");
    return said.Take();
}

std::string MeaningOf(const Remark& remark) {
    return FillIn(c_remarkWords[static_cast<std::size_t>(remark.code)].sentence,
                  {remark.field, remark.octet, remark.number, remark.other});
}

std::string MeaningOf(const Fault& fault) {
    return FillIn(c_faultWords[static_cast<std::size_t>(fault.code)].sentence,
                  {fault.field, fault.octet, fault.expected, fault.found});
}

std::string MeaningOf(const WriteFault& fault) {
    return FillIn(c_writeFaultWords[static_cast<std::size_t>(fault.code)].sentence,
                  {fault.field, 0, fault.number, fault.other});
}

std::string MeaningOf(const CutFault& fault) {
    return FillIn(c_cutFaultWords[static_cast<std::size_t>(fault.code)].sentence,
                  {Field::UserData, static_cast<std::uint32_t>(fault.offset), fault.character, 0});
}

std::string_view MeaningOf(JoinOutcome outcome) noexcept {
    return c_joinOutcomeWords[static_cast<std::size_t>(outcome)].sentence;
}

} // namespace Messages
