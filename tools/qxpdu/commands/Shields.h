// Keeps arguments from being taken for something else by the parser of the command line.
#ifndef QXPDU_SHIELDS_H
#define QXPDU_SHIELDS_H

#include <string>
#include <vector>

namespace qxpdu {

/// The option that takes several values; each gets one of its own.
inline constexpr const char* c_fileOption = "--file";

/// The flag that may have a value.
inline constexpr const char* c_reportOption = "--status-report";

/// The arguments, as the command line is to be given them: what it would take for a list, for the end
/// of a command, or for an option though "--" came before, is put under a shield. The value of a flag is tied
/// to it.
std::vector<std::string> Shielded(const std::vector<std::string>& arguments);

/// A message about them without the shields.
std::string WithoutShields(std::string message);

/// An argument as the user gave it.
std::string Unshielded(const std::string& argument);

} // namespace qxpdu

#endif
