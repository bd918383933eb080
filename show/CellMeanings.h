// What the header of a cell broadcast page means to a person, 3GPP TS 23.041 and 23.038.
#ifndef SHOW_CELLMEANINGS_H
#define SHOW_CELLMEANINGS_H

#include <string>
#include <string_view>

namespace show {

/// The fields of a serial number.
struct SerialNumber {
    unsigned int geographicalScope; ///< 0 to 3
    unsigned int messageCode;       ///< 0 to 1023
    unsigned int updateNumber;      ///< 0 to 15
};
SerialNumber SplitSerialNumber(unsigned int serialNumber);
std::string_view GeographicalScopeMeaning(unsigned int scope);

/// Whether a page of an earthquake and tsunami warning has it; both stand in the message code.
bool IsEtws(unsigned int messageIdentifier);
bool HasEmergencyAlert(unsigned int serialNumber);
bool HasPopup(unsigned int serialNumber);

/// The name of a message identifier or of the range that it belongs to.
std::string_view MessageIdentifierMeaning(unsigned int messageIdentifier);

/// A data coding scheme in words, and whether it announces anything else than GSM 7-bit text.
struct CellCoding {
    std::string meaning;
    bool isGsm7;
};
CellCoding CellCodingOf(unsigned int dcs);

/// The place of a page in its message; a number of 0 makes it a message of one page.
struct PageNumber {
    unsigned int page;  ///< 1 to 15
    unsigned int pages; ///< 1 to 15
};
PageNumber PageNumberOf(unsigned int pageParameter);

} // namespace show

#endif
