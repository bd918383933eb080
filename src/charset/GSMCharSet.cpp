#include "Encoding/GSMCharSet.h"

#include <algorithm>

#include "charset/GSMTables.h"
#include "charset/WideCharacter.h"

namespace Encoding {

// The members start empty, each pointer with a block of its own, and are filled in this order.
GSMCharSet::GSMCharSet()
    : m_GreekCount(0), m_Translated(0), m_ExtCount(0), m_Endian(SystemShare().GetEndian()) {
    m_EscapeTable = new GsmUnicodeChar[c_extensionCount];
    std::copy(c_extensionTable.begin(), c_extensionTable.end(), m_EscapeTable.get());

    m_UnicodeToGsm.reset(new signed char[c_directCount]);
    std::copy(c_reverseTables.direct.begin(), c_reverseTables.direct.end(), m_UnicodeToGsm.get());

    m_ExtUnicodeTable = new GsmUnicodeChar[c_highCapacity];
    std::copy(c_reverseTables.high.begin(), c_reverseTables.high.end(), m_ExtUnicodeTable.get());
    m_ExtCount = c_reverseTables.highCount;

    m_GreekTable = new UniCodeToGsmChar[c_greekCount];
    std::copy(c_greekTable.begin(), c_greekTable.end(), m_GreekTable.get());
    m_GreekCount = static_cast<short>(c_greekCount);
}

// The direct table goes before all other members, as is required.
GSMCharSet::~GSMCharSet() {
    m_UnicodeToGsm.reset();
}

int GSMCharSet::UnicodeToGsm(unsigned short unicode) const {
    if (unicode <= c_lastDirect)
        return unicode < c_directCount ? DirectCode(m_UnicodeToGsm.get(), unicode) : UNMAPPABLE;
    if (!IsOnCodedPage(unicode)) // spares most scripts the search
        return UNMAPPABLE;
    const GsmUnicodeChar* high = m_ExtUnicodeTable.get();
    for (int row = 0; row < m_ExtCount; ++row)
        if (high[row].unicode == unicode)
            return high[row].gsm;
    return Translate(unicode);
}

unsigned short GSMCharSet::GreekToUnicode(unsigned short unicode) const {
    const UniCodeToGsmChar* greek = m_GreekTable.get();
    for (int row = 0; row < m_GreekCount; ++row)
        if (greek[row].unicode == unicode)
            return greek[row].gsmUnicode;
    return NO_REPLACEMENT;
}

unsigned short GSMCharSet::FindUnicodeCharFromEscapeChar(unsigned char code) const {
    const GsmUnicodeChar* extension = m_EscapeTable.get();
    for (std::size_t row = 0; row < c_extensionCount; ++row)
        if (static_cast<unsigned char>(extension[row].gsm) == code)
            return extension[row].unicode;
    return 0;
}

void GSMCharSet::AddTranslateTable(TranslateTable::TT table) {
    const Toolkit::smart_ptr<GsmTranslationTable> selected(new GsmTranslationTable{table});
    m_TranslateTables.push_back(selected);
}

void GSMCharSet::ClearTranslateTable() {
    m_TranslateTables.clear();
}

bool GSMCharSet::FindTable(TranslateTable::TT table) const {
    return std::any_of(
        m_TranslateTables.begin(), m_TranslateTables.end(),
        [table](const Toolkit::smart_ptr<GsmTranslationTable>& selected) { return selected->type == table; });
}

int GSMCharSet::Translate(unsigned short unicode) const {
    if (!FindTable(TranslateTable::GREEK))
        return UNMAPPABLE;
    const unsigned short replacement = GreekToUnicode(unicode);
    if (replacement == NO_REPLACEMENT)
        return UNMAPPABLE;
    m_Translated = 1;
    // The table's Latin capitals and its space have the same value as their codes.
    return replacement <= c_lastDirect ? static_cast<signed char>(replacement) : UnicodeToGsm(replacement);
}

} // namespace Encoding
