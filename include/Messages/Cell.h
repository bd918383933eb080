/// @file
/// Cell broadcast, 3GPP TS 23.041 clause 9.4: pages of GSM, messages of UMTS and later networks, and the
/// primary notifications of earthquake and tsunami warnings.
///
/// \code
/// const Messages::CellReading page = Messages::ReadCellHex("403211120111C8329BFD06");
/// std::cout << Messages::MeaningOfMessageIdentifier(page.messageIdentifier) << ": " << page.text;
/// \endcode
///
/// As Read.h has it: any octets may be given, a fault ends the reading, and a remark ends nothing.
#ifndef MESSAGES_CELL_H
#define MESSAGES_CELL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/Alphabet.h"
#include "Messages/DataCoding.h"
#include "Messages/Export.h"
#include "Messages/Header.h"
#include "Messages/Octets.h"
#include "Messages/Remarks.h"
#include "Messages/Time.h"

namespace Messages {

/// What cell broadcast sends.
enum class CellFormat : std::uint8_t {
    Unknown,         ///< not told
    GsmPage,         ///< one page, of 88 octets as a rule, clause 9.4.1.2
    UmtsMessage,     ///< all pages, each with its length, clause 9.4.2.2
    EtwsNotification ///< 56 octets without text, clause 9.4.1.3
};

/// Where a message is valid, and how it is displayed, clause 9.4.1.2.1.
enum class GeographicalScope : std::uint8_t {
    ImmediateCell = 0, ///< the cell, displayed at once
    Network = 1,       ///< the whole network
    Area = 2,          ///< location area, service area or tracking area
    Cell = 3           ///< the cell
};

/// Tells messages of one identifier from each other, clause 9.4.1.2.1.
struct SerialNumber {
    std::uint16_t value = 0; ///< as it is sent

    /// Bits 15 and 14.
    constexpr GeographicalScope Scope() const noexcept { return static_cast<GeographicalScope>(value >> 14); }
    /// Bits 13 to 4, 0 to 1023.
    constexpr std::uint16_t MessageCode() const noexcept { return value >> 4 & 0x3FF; }
    /// Bits 3 to 0: another number, another text of the same message.
    constexpr std::uint8_t UpdateNumber() const noexcept { return value & 0x0F; }

    /// By their values.
    friend constexpr bool operator==(SerialNumber left, SerialNumber right) noexcept {
        return left.value == right.value;
    }
    /// The opposite.
    friend constexpr bool operator!=(SerialNumber left, SerialNumber right) noexcept {
        return !(left == right);
    }
};

/// Whether the identifier is one of the earthquake and tsunami warning system, 4352 to 4359.
MESSAGES_API bool IsEtws(std::uint16_t messageIdentifier) noexcept;
/// Whether the message code asks for an emergency user alert; in messages of ETWS alone it does.
MESSAGES_API bool HasEmergencyAlert(SerialNumber serial, std::uint16_t messageIdentifier) noexcept;
/// Whether the message code asks for a popup; in messages of ETWS alone it does.
MESSAGES_API bool HasPopup(SerialNumber serial, std::uint16_t messageIdentifier) noexcept;

/// The groups of data coding schemes of cell broadcast, TS 23.038 clause 5.
enum class CellCodingGroup : std::uint8_t {
    Language,           ///< GSM 7-bit, in a language that the scheme names
    LanguageInText,     ///< the language stands before the text of each page
    General,            ///< alphabet, class and compression
    UserDataHeader,     ///< a user-data header begins each page
    I1Protocol,         ///< no text, TS 24.294
    Wap,                ///< no text, laid down by the WAP Forum
    DataCodingAndClass, ///< alphabet and class
    Reserved            ///< read as GSM 7-bit
};

/// One data coding scheme of cell broadcast, every value of 0 to 255.
struct MESSAGES_API CellCoding {
    std::uint8_t value = 0x0F;                               ///< as it is sent
    CellCodingGroup group = CellCodingGroup::Language;       ///< by the table
    Alphabet alphabet = Alphabet::Gsm7;                      ///< Data where there is no text
    std::optional<std::uint8_t> messageClass = std::nullopt; ///< 0 to 3
    bool isCompressed = false;                               ///< no text is made
    bool hasHeader = false;                                  ///< a user-data header begins each page
    bool isReserved = false;                                 ///< holds reserved bits or values
    /// ISO 639, "de"; empty where the scheme names none. Constant text.
    std::string_view language = {};

    /// GSM 7-bit, no language.
    CellCoding() noexcept = default;
    /// What the octet says.
    explicit CellCoding(std::uint8_t dcs) noexcept;

    /// Whether the pages hold septets of text.
    bool CountsSeptets() const noexcept { return alphabet == Alphabet::Gsm7 && !isCompressed; }
    /// Whether the pages hold text in any alphabet.
    bool HasText() const noexcept { return alphabet != Alphabet::Data && !isCompressed; }

    /// By their values.
    friend bool operator==(const CellCoding& left, const CellCoding& right) noexcept {
        return left.value == right.value;
    }
    /// The opposite.
    friend bool operator!=(const CellCoding& left, const CellCoding& right) noexcept {
        return !(left == right);
    }
};

/// The most that a message of cell broadcast has.
/// @{
inline constexpr std::size_t c_cellPages = 15;
inline constexpr std::size_t c_cellPageOctets = 82; ///< of the content of a page
/// @}

/// The content of one page.
struct MESSAGES_API CellPage {
    std::uint8_t number = 1;             ///< 1 to 15
    std::vector<std::uint8_t> octets;    ///< as far as they are used and there; padding among them
    bool isHeaderIgnored = false;        ///< the elements do not add up, or reach beyond the page
    std::vector<HeaderElement> elements; ///< of the user-data header; their offsets are those in `octets`
    SeptetTables tables;                 ///< that the text is read with
    std::string language;                ///< that stands before the text, "en"; empty where none does
    std::uint8_t textOffset = 0;         ///< where the text begins: octets[textOffset]
    std::uint8_t textBit = 0;            ///< of septets: the bit of that octet, 0 to 7
    std::uint8_t textUnits = 0;          ///< septets, octets or UTF-16 units, without padding
    std::uint8_t paddingUnits = 0;       ///< septets or UTF-16 units of padding after them
    bool isCut = false;                  ///< a UMTS message ends before the length of the page
    std::string text;                    ///< in UTF-8, without padding; empty where there is no text

    /// The octets from the text on. Of a page without text, its data.
    OctetView Content() const noexcept { return OctetView(octets).Sub(textOffset); }

    /// Whether both, read by the coding, are the same page: the same bits up to the end of the text, whatever
    /// they are padded with.
    bool IsSameAs(const CellPage& other, const CellCoding& coding) const noexcept;
};

/// The text of pages in their order. Where the next page is there, what the cut between them parted is joined
/// before it is read: an escape and the septet after it, the halves of a character. Throws std::bad_alloc
/// alone.
MESSAGES_API std::string JoinText(const std::vector<CellPage>& pages, const CellCoding& coding);

/// What an ETWS primary notification says beside serial number and identifier, clause 9.3.24.
struct EtwsWarning {
    std::uint16_t value = 0;        ///< the warning type as it is sent
    std::uint8_t type = 0;          ///< 0 to 127: earthquake, tsunami, both, test, other; reserved
    bool hasEmergencyAlert = false; ///< the user is to be alerted
    bool hasPopup = false;          ///< a popup is to be shown
    std::optional<Timestamp> time =
        std::nullopt;                    ///< when it was signed; none where the notification lacks it
    std::vector<std::uint8_t> signature; ///< 43 octets, or none
};

/// What octets of cell broadcast say.
struct MESSAGES_API CellReading {
    CellFormat format = CellFormat::GsmPage; ///< as told or as recognised
    SerialNumber serialNumber;               ///< of every format
    std::uint16_t messageIdentifier = 0;     ///< see MeaningOfMessageIdentifier()
    CellCoding coding;                       ///< of pages and messages
    std::uint8_t total = 0;      ///< pages of the message, 1 to 15; 0 of a notification, and before a fault
    std::vector<CellPage> pages; ///< one of a GSM page, of a message as many as are there
    std::optional<EtwsWarning> warning = std::nullopt; ///< of a notification
    std::string text;                                  ///< of all pages that are there, in UTF-8
    std::vector<FieldPlace> places;                    ///< in the order of the octets
    std::vector<Remark> remarks;                       ///< in the order in which they were met
    std::optional<Fault> fault = std::nullopt;         ///< that ended the reading

    /// The language of the text: that the first page begins with, or that the coding names; may be empty.
    std::string_view Language() const noexcept;
};

/// Reads a page, a message or a notification. What is not told is recognised: a message by its type and by a
/// length that its number of pages has, a notification by 56 octets and an identifier of ETWS; all else is a
/// page. Takes time linear in the number of octets, reads none outside, keeps none of them.
///
/// Threads: any number at once; there are no locks and no state. Failure: in the result; std::bad_alloc alone
/// is thrown.
MESSAGES_API CellReading ReadCell(OctetView octets, CellFormat format = CellFormat::Unknown);

/// ReadCell() of hexadecimal digits, see FromHex(). Any other text gives a reading with the fault
/// `NotHexadecimal`, and nothing else.
MESSAGES_API CellReading ReadCellHex(std::string_view digits, CellFormat format = CellFormat::Unknown);

/// A message whose pages have come, or some of them.
struct MESSAGES_API CellMessage {
    SerialNumber serialNumber;           ///< of every page
    std::uint16_t messageIdentifier = 0; ///< of every page
    CellCoding coding;                   ///< of every page
    std::uint8_t total = 1;              ///< pages of the message
    std::vector<CellPage> pages;         ///< those that have come, by their numbers

    /// Whether all pages have come whole.
    bool IsComplete() const noexcept;
    /// The numbers of the pages that have not come whole. Throws std::bad_alloc alone.
    std::vector<std::uint8_t> Missing() const;
    /// Of the pages that have come, see JoinText(). Throws std::bad_alloc alone.
    std::string Text() const { return JoinText(pages, coding); }
};

/// What a page did.
struct CellTaken {
    bool isDuplicate = false; ///< the page has come before, the same but for its padding
    /// Handed back. What waited for pages: replaced by a newer update or by another message of the same key,
    /// or the oldest to make room. And what was taken itself, whole or not, where it is not held: of an older
    /// update than is held, or a page beyond the total.
    std::vector<CellMessage> givenUp;
    std::optional<CellMessage> complete; ///< the message that the page completes
};

/// Puts pages together that come in any order and many times over. A message is known by scope, message code,
/// update number and identifier. A page of a newer update replaces what is held of an older one; one of an
/// older update is given up by itself. Update numbers go around: the eight after a number are newer. A page
/// with another coding, another number of pages, or other octets than the page of its number that came before
/// begins a new message of the same key, and the one before is given up. A page that was cut waits for the
/// whole one, and takes the place of none. A later page in UCS2 has the language of the first one, or none:
/// read by itself, it may have had a character taken for another.
///
/// Holds so many messages at most, those among them that are complete and known again: of those the oldest is
/// forgotten first, then the oldest that waits is given up.
///
/// Threads: one at a time. Failure: std::bad_alloc alone is thrown, and nothing has changed then.
class MESSAGES_API CellJoiner {
public:
    /// Messages that are held by default.
    static constexpr std::size_t c_messages = 256;

    /// REQUIRES messages > 0.
    explicit CellJoiner(std::size_t messages = c_messages) noexcept : m_Most(messages) {}

    /// Takes a page or a message in. A notification, and a reading with a fault, changes nothing.
    CellTaken Take(const CellReading& reading);

    /// Gives up the oldest message that waits for pages; nothing where none does.
    std::optional<CellMessage> TakeOldest();

private:
    std::size_t m_Most;
    std::list<CellMessage> m_Held; ///< in the order in which they began
};

/// What is to be sent.
struct CellDraft {
    CellFormat format = CellFormat::GsmPage; ///< GsmPage or UmtsMessage
    SerialNumber serialNumber;               ///< as it is to be sent
    std::uint16_t messageIdentifier = 0;     ///< as it is to be sent
    std::string text;                        ///< UTF-8
    /// ISO 639, two letters from a to z. One that a data coding scheme names is named by it where the
    /// alphabet allows, any other stands before the text of each page. Empty: no language is told.
    std::string language;
    /// Unset: the default alphabet with its extension, or UCS2 where the text needs it. Data is a fault.
    std::optional<Alphabet> alphabet = std::nullopt;
    /// 0 to 3; not with a language.
    std::optional<std::uint8_t> messageClass = std::nullopt;
};

/// Why a draft cannot be sent.
enum class CellDraftFault : std::uint8_t {
    None,             ///< it can
    NotUtf8,          ///< the text is not UTF-8
    NotInAlphabet,    ///< the text has a character that the alphabet asked for lacks
    TooLong,          ///< more than 15 pages
    NoSuchLanguage,   ///< the language is not two letters from a to z
    LanguageAndClass, ///< no data coding scheme has both
    NoSuchClass,      ///< above 3
    NoSuchFormat,     ///< neither a GSM page nor a UMTS message
    NoSuchAlphabet    ///< no text can be written as data
};

/// What a draft has become.
struct CellWritten {
    CellDraftFault fault = CellDraftFault::None; ///< with one, there are no pages
    /// The character that NotUtf8 and NotInAlphabet are about.
    std::optional<MisfitCharacter> misfit = std::nullopt;
    CellCoding coding;     ///< that was chosen
    std::size_t pages = 0; ///< 1 to 15
    /// The octets of each GSM page, 88 a page; or of the one UMTS message.
    std::vector<std::vector<std::uint8_t>> octets;
};

/// Writes pages. Each is filled from the front as far as it goes; neither an escape and its septet nor the
/// halves of a character are cut. Pages of septets are padded with CR, pages of UCS2 with U+000D. Throws
/// std::bad_alloc alone.
MESSAGES_API CellWritten WriteCell(const CellDraft& draft);

/// English for what this header has as numbers. All views are of constant text.
/// @{

/// "GSM page", "UMTS message", "ETWS primary notification"; empty for none.
MESSAGES_API std::string_view NameOf(CellFormat format) noexcept;
/// "cell wide, displayed at once". Throws std::bad_alloc alone.
MESSAGES_API std::string MeaningOf(GeographicalScope scope);
/// "earthquake".
MESSAGES_API std::string_view NameOfWarningType(std::uint8_t type) noexcept;
/// The name of the language with a code that a data coding scheme of cell broadcast has, "German"; empty for
/// any other.
MESSAGES_API std::string_view NameOfCellLanguage(std::string_view code) noexcept;
/// "CMAS presidential, EU-Alert level 1"; of every identifier. Throws std::bad_alloc alone.
MESSAGES_API std::string MeaningOfMessageIdentifier(std::uint16_t identifier);
/// "scope 1: network wide, message code 2, update number 3". Throws std::bad_alloc alone.
MESSAGES_API std::string MeaningOf(SerialNumber serial, std::uint16_t messageIdentifier);
/// "GSM 7-bit, German". Throws std::bad_alloc alone.
MESSAGES_API std::string MeaningOf(const CellCoding& coding);
/// "the text takes more than 15 pages".
MESSAGES_API std::string_view MeaningOf(CellDraftFault fault) noexcept;
/// @}

} // namespace Messages

#endif
