// The command line of qxpdu.
#ifndef QXPDU_COMMANDLINE_H
#define QXPDU_COMMANDLINE_H

#include <string>
#include <vector>

#include "stream/Console.h"

namespace qxpdu {

/// Runs the tool with these arguments, the program's name not included. Returns the exit status.
int RunTool(const std::vector<std::string>& given, const Streams& streams);

} // namespace qxpdu

#endif
