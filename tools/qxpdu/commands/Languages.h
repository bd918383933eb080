// The languages whose tables a text may be written with, as the user names them.
#ifndef QXPDU_LANGUAGES_H
#define QXPDU_LANGUAGES_H

#include <string>
#include <vector>

#include "Messages/Alphabet.h"

namespace qxpdu {

/// Of the option that names them, for help.
inline constexpr const char* c_languagesMeaning =
    "Languages whose tables may be used where that is cheaper, with commas between: tr, es, pt, bn, gu, hi, "
    "kn, ml, or, pa, ta, te, ur; or all";

/// What is wrong with "tr,pt" or "all"; nothing where each is a language that has tables.
std::string FaultOfLanguages(const std::string& names);

/// None of an empty text. REQUIRES that nothing is wrong with it.
Messages::Languages LanguagesIn(const std::string& names);

/// "tr" and "pt": the way back.
std::vector<std::string> CodesOf(Messages::Languages languages);

} // namespace qxpdu

#endif
