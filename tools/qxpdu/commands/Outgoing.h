// A message on its way out, by the standards: from what the user says of it to its PDUs.
#ifndef QXPDU_OUTGOING_H
#define QXPDU_OUTGOING_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Messages/Address.h"
#include "commands/OutgoingOptions.h"

namespace qxpdu {

/// What the user is to know of a message.
struct Caution {
    std::string option; ///< that it is about; empty for the text
    std::string message;
    bool isWanted = false; ///< it is what the user asked for, and no error to one who is strict

    std::string ToText() const { return option.empty() ? message : option + ": " + message; }
};

/// The PDUs of a message, each with its service centre.
struct Outgoing {
    std::vector<std::vector<std::uint8_t>> pdus;
    std::vector<Caution> cautions;
};

/// What is said of an empty text that goes out.
Caution CautionOfNoText();

/// Of numbers of which not every character goes out, and of the validity.
void AddCautionsOfOptions(const OutgoingOptions& options, std::vector<Caution>& cautions);

/// The service centre; empty where the modem's own is meant.
Messages::Address ServiceCentreOf(const OutgoingOptions& options);

/// `text` is that of the input; hexadecimal where that is the data. Where there are several parts they have
/// the reference, or without one a random one. Throws InputError. REQUIRES options that go together.
Outgoing MakeOutgoing(const OutgoingOptions& options, const std::string& text,
                      std::optional<std::uint16_t> reference);

/// By the system's random source; nothing where that gives none.
std::optional<std::uint16_t> RandomReference();

} // namespace qxpdu

#endif
