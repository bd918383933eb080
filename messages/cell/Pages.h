// The wire format of cell broadcast.
#ifndef CELL_PAGES_H
#define CELL_PAGES_H

#include "Messages/Cell.h"
#include "alphabet/Packing.h"

namespace Messages {

constexpr std::size_t c_pageHeadOctets = 6;                                  ///< of a GSM page
constexpr std::size_t c_gsmPageOctets = c_pageHeadOctets + c_cellPageOctets; ///< the whole of it
constexpr std::size_t c_messageHeadOctets = 7;                               ///< of a UMTS message
constexpr std::size_t c_slotOctets = c_cellPageOctets + 1; ///< a page of it, and the page's length
constexpr std::uint8_t c_cbsMessageType = 1;
constexpr std::size_t c_notificationOctets = 56;
constexpr std::size_t c_signatureOctets = 43;

constexpr std::size_t c_pageSeptets = c_cellPageOctets * c_octetBits / c_septetBits; ///< 93
constexpr std::uint8_t c_carriageReturn = 0x0D; ///< padding, in septets and in UCS2
constexpr std::size_t c_languageSeptets = 2;    ///< letters before the text
constexpr std::size_t c_languageOctets = 2;     ///< that they take before UCS2

constexpr bool IsSmallLetter(std::uint8_t septet) {
    return septet >= 'a' && septet <= 'z';
}

/// Whether a later page in UCS2 begins as the first one of its message does: with its language, or with a
/// line break in its place. What else looks like either is a character.
inline bool BeginsAlike(const CellPage& page, const CellPage& first) {
    return first.textOffset != 0 && first.language == page.language;
}

} // namespace Messages

#endif
