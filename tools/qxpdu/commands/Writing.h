// How a text is to be written by the standards, for the commands that send it and that count it.
#ifndef QXPDU_WRITING_H
#define QXPDU_WRITING_H

#include <optional>
#include <string>

#include "Messages/Parts.h"
#include "show/JsonForward.h"

namespace qxpdu {

/// Each as it was given; an empty text where it was not.
struct WritingOptions {
    std::string languages;
    std::string alphabet; ///< "gsm" or "ucs2"; others are the command's own
    std::string concatBits;
    std::string ports; ///< "TO:FROM"
    std::string portBits;
    bool replacesNear = false;
};

/// What is wrong with the name of an alphabet for texts.
std::string FaultOfAlphabet(const std::string& name);

/// None of any other name.
std::optional<Messages::Alphabet> AlphabetNamed(const std::string& name);

/// What is wrong with the ports and their bits together.
std::string FaultOfPortsWithBits(const WritingOptions& options);

/// How to cut the text. REQUIRES that nothing is wrong with the options.
Messages::CutOptions CuttingOf(const WritingOptions& options);

/// Names the national tables in use.
void AddTables(const Messages::SeptetTables& tables, show::Json& object);

} // namespace qxpdu

#endif
