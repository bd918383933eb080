// A command with its options, ready to run.
#ifndef WEB_MODULE_OPTIONS_H
#define WEB_MODULE_OPTIONS_H

#include <memory>
#include <string>
#include <vector>

#include "commands/Command.h"

namespace qxpdu {

/// May run any number of times.
class PreparedCommand {
public:
    /// The words of the command and its options, "cell", "--type=gsm". Throws CommandLineError.
    explicit PreparedCommand(const std::vector<std::string>& words);
    ~PreparedCommand();
    PreparedCommand(const PreparedCommand&) = delete;
    PreparedCommand& operator=(const PreparedCommand&) = delete;

    /// Returns the exit status.
    int Run(const Streams& streams) const;

private:
    std::unique_ptr<CLI::App> m_Commands; ///< that the action looks up its inputs in
    Action m_Action;
};

} // namespace qxpdu

#endif
