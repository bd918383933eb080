#include "model/Cell.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "model/Codes.h"
#include "model/Fields.h"
#include "model/Tables.h"
#include "model/Text.h"

namespace plain {

namespace {

constexpr std::size_t c_contentOctets = 82;
constexpr std::size_t c_signatureOctets = 43;
constexpr int c_mostPages = 15;
constexpr int c_return = 0x0D;

const std::array<CellCoding, 256>& Codings() {
    static const std::array<CellCoding, 256> codings = [] {
        std::array<CellCoding, 256> all;
        const auto word = [](const std::string& cell) { return cell == "-" ? std::string() : cell; };
        for (Row& row : ReadTable("cbs-data-coding"))
            all.at(static_cast<std::size_t>(std::stoi(row["value"], nullptr, 16))) = {
                row["group"],
                word(row["alphabet"]),
                row["compressed"] == "yes",
                row["class"] == "-" ? -1 : std::stoi(row["class"]),
                word(row["iso639"]),
                row["header"] == "yes",
                row["reserved"] == "yes"};
        return all;
    }();
    return codings;
}

bool IsReservedWarning(int type) {
    static const std::vector<Row> types = ReadTable("etws-warning-types");
    return std::any_of(types.begin(), types.end(), [type](const Row& row) {
        return type >= std::stoi(row.at("from")) && type <= std::stoi(row.at("to")) &&
               row.at("name") == "reserved";
    });
}

/// By the table: bit 9 of the message code is bit 13 of the serial number.
bool HasCodeBit(int serial, const std::string& name) {
    static const std::vector<Row> bits = ReadTable("cbs-message-code");
    return std::any_of(bits.begin(), bits.end(), [&](const Row& row) {
        return row.at("name") == name && (serial >> (4 + std::stoi(row.at("bit"))) & 1) != 0;
    });
}

int SeptetAt(const Octets& octets, std::size_t bit) {
    int septet = 0;
    for (std::size_t i = 0; i < 7; ++i)
        septet |= (octets[(bit + i) / 8] >> ((bit + i) % 8) & 1) << i;
    return septet;
}

bool IsSmallLetter(int septet) {
    return septet >= 'a' && septet <= 'z';
}
bool IsLetter(int septet) {
    return IsSmallLetter(septet) || (septet >= 'A' && septet <= 'Z');
}

/// Septets of a text that are not padding: what is left without the zeros at the end and without the CRs
/// before them. Where there are no CRs the zeros are padding too, two of them in a page of 82 octets and
/// eight in a shorter one. A pair is not cut.
std::size_t WithoutPadding(const std::vector<int>& septets, bool isWhole, std::size_t& zeros) {
    const auto lastOther = [&](std::size_t end, int padding) {
        while (end > 0 && septets[end - 1] == padding)
            --end;
        return end;
    };
    const std::size_t beforeZeros = lastOther(septets.size(), 0);
    const std::size_t beforeReturns = lastOther(beforeZeros, c_return);
    const std::size_t count = septets.size() - beforeZeros;
    const bool arePadding = beforeReturns < beforeZeros || count >= (isWhole ? 2U : 8U);
    zeros = arePadding ? 0 : count;
    std::size_t end = arePadding ? beforeReturns : septets.size();
    std::size_t escapes = 0;
    while (escapes < end && septets[end - 1 - escapes] == 0x1B)
        ++escapes;
    if (escapes % 2 == 1 && end < septets.size())
        ++end;
    return end;
}

class CellReader {
public:
    CellReader(const CellInput& input, CellReading& reading) : m_Input(input), m_Reading(reading) {}

    void Run() {
        m_Reading.format = m_Input.format.empty() ? Recognised() : m_Input.format;
        if (m_Reading.format == "umts")
            ReadMessage();
        else if (m_Reading.format == "etws")
            ReadNotification();
        else
            ReadPage();
    }

private:
    std::string Recognised() const {
        const Octets& octets = m_Input.octets;
        if (octets.size() > 6 && octets[0] == 1 && octets[6] >= 1 && octets[6] <= c_mostPages &&
            octets.size() == std::size_t{7} + std::size_t{83} * octets[6])
            return "umts";
        if (octets.size() == 56 && IsWarning(octets[2] << 8 | octets[3]))
            return "etws";
        return "gsm";
    }

    std::size_t Left() const { return m_Input.octets.size() - m_At; }

    void Note(Name code, Name field, std::size_t octet, std::size_t number = 0, std::size_t other = 0) {
        m_Reading.remarks.push_back({code, field, octet, number, other});
    }

    void PlaceAt(Name field, std::size_t octet, std::size_t count, int mask = 0xFF) {
        if (count != 0)
            m_Reading.places.push_back({field, octet, count, mask});
    }

    /// The octets of a field that must be there; nothing where they are not.
    std::optional<Octets> Take(Name field, std::size_t count) {
        if (m_Reading.fault)
            return std::nullopt;
        PlaceAt(field, m_At, std::min(count, Left()));
        if (Left() < count) {
            const Name code = m_Input.octets.empty() ? code::EMPTY : code::FIELD_CUT;
            m_Reading.fault = Fault{code, field, m_At, count, Left()};
            return std::nullopt;
        }
        const auto first = m_Input.octets.begin() + static_cast<std::ptrdiff_t>(m_At);
        m_At += count;
        return Octets(first, first + static_cast<std::ptrdiff_t>(count));
    }

    std::optional<int> TakeWord(Name field) {
        const auto octets = Take(field, 2);
        if (!octets)
            return std::nullopt;
        return (*octets)[0] << 8 | (*octets)[1];
    }

    std::optional<int> TakeOctet(Name field) {
        const auto octets = Take(field, 1);
        if (!octets)
            return std::nullopt;
        return (*octets)[0];
    }

    void TakeCoding() {
        m_Reading.dcs = TakeOctet(field::CELL_CODING);
        if (!m_Reading.dcs)
            return;
        m_Reading.coding = Codings().at(static_cast<std::size_t>(*m_Reading.dcs));
        if (m_Reading.coding.reserved)
            Note(code::RESERVED_DATA_CODING, field::CELL_CODING, m_At - 1,
                 static_cast<std::size_t>(*m_Reading.dcs));
    }

    void SplitSerial() {
        if (!m_Reading.serial || !m_Reading.identifier || !IsWarning(*m_Reading.identifier))
            return;
        m_Reading.emergency = HasCodeBit(*m_Reading.serial, "emergency user alert");
        m_Reading.popup = HasCodeBit(*m_Reading.serial, "popup");
    }

    void End() {
        if (Left() == 0)
            return;
        Note(code::PAGE_SURPLUS, field::SURPLUS, m_At, Left());
        PlaceAt(field::SURPLUS, m_At, Left());
    }

    void ReadPage() {
        m_Reading.serial = TakeWord(field::SERIAL_NUMBER);
        m_Reading.identifier = TakeWord(field::MESSAGE_IDENTIFIER);
        SplitSerial();
        TakeCoding();
        const auto parameter = TakeOctet(field::PAGE_PARAMETER);
        if (!parameter)
            return;
        int number = *parameter >> 4, total = *parameter & 0x0F;
        if (number == 0 || total == 0) {
            Note(code::PAGE_PARAMETER_ZERO, field::PAGE_PARAMETER, m_At - 1,
                 static_cast<std::size_t>(*parameter));
            number = total = 1;
        } else if (number > total) {
            Note(code::PAGE_BEYOND_TOTAL, field::PAGE_PARAMETER, m_At - 1, static_cast<std::size_t>(number),
                 static_cast<std::size_t>(total));
        }
        m_Reading.total = total;
        ReadContent(number, std::min(Left(), c_contentOctets));
        End();
    }

    void ReadMessage() {
        const auto type = TakeOctet(field::CELL_TYPE);
        if (type && *type != 1)
            Note(code::RESERVED_CELL_TYPE, field::CELL_TYPE, 0, static_cast<std::size_t>(*type));
        m_Reading.identifier = TakeWord(field::MESSAGE_IDENTIFIER);
        m_Reading.serial = TakeWord(field::SERIAL_NUMBER);
        SplitSerial();
        TakeCoding();
        const auto count = TakeOctet(field::PAGE_COUNT);
        if (!count)
            return;
        if (*count == 0 || *count > c_mostPages)
            Note(code::RESERVED_PAGE_COUNT, field::PAGE_COUNT, m_At - 1, static_cast<std::size_t>(*count));
        // None is one, and there are never more.
        const int total = std::clamp(*count, 1, c_mostPages);
        m_Reading.total = total;
        const std::size_t whole = Left() / 83;
        if (whole < static_cast<std::size_t>(total))
            Note(code::PAGES_MISSING, field::PAGE_COUNT, m_At - 1, static_cast<std::size_t>(total), whole);
        for (int number = 1; number <= total && Left() != 0; ++number) {
            if (Left() < 83) {
                ReadContent(number, std::min(Left(), c_contentOctets));
                m_Reading.pages.back().cut = true;
                break;
            }
            const std::size_t lengthAt = m_At + c_contentOctets;
            const std::size_t length = m_Input.octets[lengthAt];
            if (length == 0 || length > c_contentOctets)
                Note(code::RESERVED_PAGE_LENGTH, field::PAGE_LENGTH, lengthAt, length);
            ReadContent(number, std::min(length, c_contentOctets));
            PlaceAt(field::PAGE_FILLING, m_At, lengthAt - m_At);
            PlaceAt(field::PAGE_LENGTH, lengthAt, 1);
            m_At = lengthAt + 1;
        }
        End();
    }

    void ReadNotification() {
        m_Reading.serial = TakeWord(field::SERIAL_NUMBER);
        m_Reading.identifier = TakeWord(field::MESSAGE_IDENTIFIER);
        SplitSerial();
        if (m_Reading.identifier && !IsWarning(*m_Reading.identifier))
            Note(code::NO_WARNING_IDENTIFIER, field::MESSAGE_IDENTIFIER, m_At - 2,
                 static_cast<std::size_t>(*m_Reading.identifier));
        const auto value = TakeWord(field::WARNING_TYPE);
        if (!value)
            return;
        CellWarning& warning = m_Reading.warning.emplace();
        warning.value = *value;
        warning.type = *value >> 9;
        warning.emergency = (*value >> 8 & 1) != 0;
        warning.popup = (*value >> 7 & 1) != 0;
        if (IsReservedWarning(warning.type))
            Note(code::RESERVED_WARNING_TYPE, field::WARNING_TYPE, m_At - 2,
                 static_cast<std::size_t>(warning.type));
        if ((*value & 0x7F) != 0)
            Note(code::WARNING_FILLING_SET, field::WARNING_TYPE, m_At - 1,
                 static_cast<std::size_t>(*value & 0x7F));
        if (Left() == 0) {
            Note(code::WARNING_SECURITY_MISSING, field::WARNING_TIME, m_At);
            return;
        }
        const std::size_t timeAt = m_At;
        if (const auto time = Take(field::WARNING_TIME, 7))
            warning.time = ReadTime(*time, Remarks(m_Reading.remarks, field::WARNING_TIME, timeAt));
        if (const auto signature = Take(field::WARNING_SIGNATURE, c_signatureOctets))
            warning.signature = *signature;
        if (!m_Reading.fault)
            End();
    }

    /// The octets of the page's content that are used.
    void ReadContent(int number, std::size_t used) {
        CellPage& page = m_Reading.pages.emplace_back();
        page.number = number;
        const auto first = m_Input.octets.begin() + static_cast<std::ptrdiff_t>(m_At);
        page.octets = Octets(first, first + static_cast<std::ptrdiff_t>(used));
        const CellCoding& coding = m_Reading.coding;
        const std::size_t start = coding.header ? ReadPageHeader(page) : 0;
        const bool beyond = coding.header && used != 0 && std::size_t{1} + page.octets[0] > used;
        if (coding.alphabet.empty() || coding.alphabet == "octets" || coding.compressed || beyond)
            ReadData(page, start);
        else if (coding.alphabet == "ucs2")
            ReadUnits(page, start);
        else
            ReadSeptets(page, start);
        m_At += used;
    }

    /// Returns the octets of the header.
    std::size_t ReadPageHeader(CellPage& page) {
        if (page.octets.empty()) {
            Note(code::HEADER_MISSING, field::CELL_CODING, m_At);
            return 0;
        }
        const std::size_t length = page.octets[0];
        PlaceAt(field::HEADER_LENGTH, m_At, 1);
        if (1 + length > page.octets.size()) {
            Note(code::HEADER_BEYOND_USER_DATA, field::HEADER_LENGTH, m_At, 1 + length, page.octets.size());
            page.ignoresHeader = true;
            PlaceAt(field::IGNORED_HEADER, m_At + 1, page.octets.size() - 1);
            return page.octets.size();
        }
        // The elements are those of messages.
        Reading likeMessage;
        likeMessage.coding.alphabet = m_Reading.coding.alphabet;
        likeMessage.coding.compressed = m_Reading.coding.compressed;
        const auto first = page.octets.begin() + 1;
        plain::ReadHeader(Octets(first, first + static_cast<std::ptrdiff_t>(length)), likeMessage,
                          Remarks(m_Reading.remarks, field::HEADER_LENGTH, m_At + 1));
        m_Reading.places.insert(m_Reading.places.end(), likeMessage.places.begin(), likeMessage.places.end());
        page.ignoresHeader = likeMessage.ignoresHeader;
        page.elements = likeMessage.elements;
        page.locking = likeMessage.locking;
        page.single = likeMessage.single;
        return 1 + length;
    }

    void ReadData(CellPage& page, std::size_t start) {
        PlaceAt(field::PAGE_CONTENT, m_At + start, page.octets.size() - start);
        if (m_Reading.coding.compressed)
            Note(code::COMPRESSED, field::PAGE_CONTENT, m_At + start);
        page.units = page.octets.size() - start;
        page.data = Octets(page.octets.begin() + static_cast<std::ptrdiff_t>(start), page.octets.end());
    }

    void ReadUnits(CellPage& page, std::size_t start) {
        if (m_Reading.coding.language == "text")
            start = ReadUnitsLanguage(page);
        PlaceAt(field::PAGE_CONTENT, m_At + start, page.octets.size() - start);
        const std::size_t all = (page.octets.size() - start) / 2;
        page.units = all;
        const auto isPadding = [&](std::size_t unit) {
            const std::size_t octet = start + 2 * unit;
            return page.octets[octet] == 0 && (page.octets[octet + 1] == 0 || page.octets[octet + 1] == 0x0D);
        };
        while (page.units > 0 && isPadding(page.units - 1))
            --page.units;
        page.padding = all - page.units;
        Octets used(page.octets.begin(),
                    page.octets.begin() + static_cast<std::ptrdiff_t>(start + 2 * page.units));
        page.text = UnitText(used, start, [&](Name code, std::size_t bit, std::size_t n, std::size_t o) {
            Note(code, field::PAGE_CONTENT, m_At + bit / 8, n, o);
        });
        if ((page.octets.size() - start) % 2 != 0)
            Note(code::ODD_OCTET, field::PAGE_CONTENT, m_At + page.octets.size() - 1, page.octets.back());
    }

    /// Returns the octets of the language. The two bits after its letters are 0, or begin a CR. What has a
    /// line break in its place has no language. The second page of a message, and those after it, have what
    /// the first one has, or nothing.
    std::size_t ReadUnitsLanguage(CellPage& page) {
        const bool isThere = page.octets.size() >= 2;
        const bool isBreak = isThere && page.octets[0] == 0x0D && page.octets[1] == 0x0A;
        const bool isLanguage = isThere && IsSmallLetter(SeptetAt(page.octets, 0)) &&
                                IsSmallLetter(SeptetAt(page.octets, 7)) && page.octets[1] < 0x80;
        if (isLanguage)
            page.language = {static_cast<char>(SeptetAt(page.octets, 0)),
                             static_cast<char>(SeptetAt(page.octets, 7))};
        else if (page.number == 1)
            Note(code::LANGUAGE_MISSING, field::PAGE_LANGUAGE, m_At);
        const std::string begins = isLanguage ? page.language : isBreak ? "break" : "nothing";
        if (m_FirstBegins.empty())
            m_FirstBegins = begins;
        if (begins == "nothing" || begins != m_FirstBegins) {
            page.language.clear();
            return 0;
        }
        PlaceAt(field::PAGE_LANGUAGE, m_At, 2);
        return 2;
    }

    void ReadSeptets(CellPage& page, std::size_t start) {
        std::size_t bit = 8 * start;
        if (start != 0 && start < page.octets.size()) {
            const std::size_t fill = (7 - bit % 7) % 7;
            if (fill != 0) {
                const int mask = (1 << fill) - 1;
                PlaceAt(field::FILL_BITS, m_At + start, 1, mask);
                const int set = page.octets[start] & mask;
                if (set != 0)
                    Note(code::FILL_BITS_SET, field::FILL_BITS, m_At + start, static_cast<std::size_t>(set));
            }
            bit += fill;
        }
        if (m_Reading.coding.language == "text")
            bit = ReadSeptetsLanguage(page);
        const std::size_t firstOctet = bit / 8;
        if (firstOctet < page.octets.size())
            PlaceAt(field::PAGE_CONTENT, m_At + firstOctet, page.octets.size() - firstOctet,
                    0xFF << bit % 8 & 0xFF);
        std::vector<int> septets;
        for (std::size_t at = bit; at + 7 <= 8 * page.octets.size(); at += 7)
            septets.push_back(SeptetAt(page.octets, at));
        std::size_t zeros = 0;
        page.units = WithoutPadding(septets, page.octets.size() == c_contentOctets, zeros);
        page.padding = septets.size() - page.units;
        page.text = SeptetText(page.octets, bit, page.units, page.locking, page.single,
                               [&](Name code, std::size_t at, std::size_t n, std::size_t o) {
                                   Note(code, field::PAGE_CONTENT, m_At + at / 8, n, o);
                               });
        if (zeros != 0)
            Note(code::PAGE_POSSIBLE_FILLING, field::PAGE_CONTENT, m_At + page.octets.size() - 1, zeros);
    }

    /// Returns the bit at which the text begins.
    std::size_t ReadSeptetsLanguage(CellPage& page) {
        if (8 * page.octets.size() >= 21 && IsLetter(SeptetAt(page.octets, 0)) &&
            IsLetter(SeptetAt(page.octets, 7)) && SeptetAt(page.octets, 14) == c_return) {
            page.language = {static_cast<char>(SeptetAt(page.octets, 0)),
                             static_cast<char>(SeptetAt(page.octets, 7))};
            PlaceAt(field::PAGE_LANGUAGE, m_At, 2);
            PlaceAt(field::PAGE_LANGUAGE, m_At + 2, 1, 0x1F);
            return 21;
        }
        if (page.number == 1)
            Note(code::LANGUAGE_MISSING, field::PAGE_LANGUAGE, m_At);
        return 0;
    }

    const CellInput& m_Input;
    CellReading& m_Reading;
    std::size_t m_At = 0;
    std::string m_FirstBegins; ///< what stands before the units of the first page: a language, break, nothing
};

} // namespace

bool IsWarning(int identifier) {
    static const std::vector<Row> rows = ReadTable("cbs-message-identifiers");
    return std::any_of(rows.begin(), rows.end(), [identifier](const Row& row) {
        return row.at("family") == "ETWS" && identifier >= std::stoi(row.at("from")) &&
               identifier <= std::stoi(row.at("to"));
    });
}

CellReading ReadCell(const CellInput& input) {
    CellReading reading;
    CellReader(input, reading).Run();
    std::stable_sort(reading.remarks.begin(), reading.remarks.end(),
                     [](const Remark& one, const Remark& other) {
                         return std::tie(one.octet, one.code) < std::tie(other.octet, other.code);
                     });
    return reading;
}

} // namespace plain
