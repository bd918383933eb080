// What cell broadcast pages and messages say (3GPP TS 23.041, 9.4): the plain values of the second reading.
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_CELL_H
#define TESTS_REFERENCE_MESSAGES_MODEL_CELL_H

#include "model/Reading.h"

namespace plain {

struct CellInput {
    Octets octets;
    std::string format; ///< gsm, umts or etws; empty where it is not told
};

/// What the octet of the data coding scheme says; the cells of the table.
struct CellCoding {
    std::string group, alphabet; ///< no alphabet where there is no text
    bool compressed = false;
    int messageClass = -1;
    std::string language; ///< ISO 639, "text" where it stands in the page, or nothing
    bool header = false, reserved = false;
    bool operator==(const CellCoding&) const = default;
};

/// The content of one page.
struct CellPage {
    int number = 0;
    Octets octets; ///< the content, as far as it is used and there
    bool ignoresHeader = false;
    std::vector<Element> elements;
    int locking = 0, single = 0;
    std::string language;    ///< that stands before the text
    std::size_t units = 0;   ///< septets, UTF-16 units or octets without language and padding
    std::size_t padding = 0; ///< septets or units of padding after them
    bool cut = false;        ///< of a message that ends in the page
    std::optional<std::string> text;
    std::optional<Octets> data; ///< what is no text
    bool operator==(const CellPage&) const = default;
};

struct CellWarning {
    int value = 0, type = 0;
    bool emergency = false, popup = false;
    std::optional<Time> time;
    Octets signature;
    bool operator==(const CellWarning&) const = default;
};

struct CellReading {
    std::string format;
    std::optional<int> serial, identifier, dcs;
    bool emergency = false, popup = false; ///< of the serial number
    CellCoding coding;
    std::optional<int> total; ///< pages of the message
    std::vector<CellPage> pages;
    std::optional<CellWarning> warning;
    std::vector<Remark> remarks;
    std::optional<Fault> fault;
    std::vector<Place> places;
    bool operator==(const CellReading&) const = default;
};

CellReading ReadCell(const CellInput& input);

/// Whether an identifier is one of earthquake and tsunami warnings.
bool IsWarning(int identifier);

} // namespace plain

#endif
