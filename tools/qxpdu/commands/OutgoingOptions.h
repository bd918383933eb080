// What the user says of a message to make, on the command line or as the members of an object.
#ifndef QXPDU_OUTGOINGOPTIONS_H
#define QXPDU_OUTGOINGOPTIONS_H

#include <optional>
#include <string>

#include "Messages/Tpdu.h"
#include "commands/Options.h"
#include "commands/Validity.h"
#include "commands/Writing.h"
#include "show/JsonForward.h"

namespace qxpdu {

/// Each as it was given; an empty text where it was not.
struct OutgoingOptions : ConversionOptions, WritingOptions {
    std::string type = "submit";
    std::string as; ///< "libQX_Encoding", or empty
    std::string to;
    std::string from;
    std::string smsc;
    std::string validity;
    std::string validityFormat;
    std::string statusReport; ///< "first", "all", or empty where none is asked for
    std::string time;
    std::string dischargeTime;
    std::string data; ///< hexadecimal; "-" where the input is
    std::optional<int> messageClass;
    std::optional<int> reference;
    std::optional<int> protocol;
    std::optional<int> status;
    std::optional<int> failureCause;
    std::optional<int> commandType;
    std::optional<int> messageNumber;
    std::optional<int> concatReference;
    bool isSingleShot = false;
    bool rejectDuplicates = false;
    bool replyPath = false;
    bool moreMessages = false;
    bool loopPrevention = false;
    bool forCommand = false;
    bool greek = false;
    bool strict = false;
    bool at = false;
    bool lines = false;

    bool IsForHost() const { return !as.empty(); }
    bool IsDataGiven() const { return !data.empty() && data != "-"; }
    Messages::TpduType Type() const;
    /// Whether there may be a message of that type without user data.
    bool MayBeEmpty() const;
    MadeValidity Validity() const { return MakeValidity({validity, validityFormat, isSingleShot}); }
};

/// Adds all options of the command and its argument.
void AddOutgoing(const Command& command, OutgoingOptions& options);

/// Sets what a member of an object has the name of; false where no option has it. Throws InputError for a
/// value that the option refuses.
bool SetOption(const std::string& name, const show::Json& value, OutgoingOptions& options);

/// What is wrong with options that do not go together; nothing where they do.
std::string FaultOfCombination(const OutgoingOptions& options);

} // namespace qxpdu

#endif
