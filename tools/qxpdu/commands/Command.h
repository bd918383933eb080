// A command of the tool, and the options that the command line may give it. The parser stays behind this:
// whoever sees it compiles for many seconds.
#ifndef QXPDU_COMMAND_H
#define QXPDU_COMMAND_H

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "stream/Console.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace qxpdu {

/// What the chosen command does once the command line is read; returns the exit status.
using Action = std::function<int(const Streams&)>;

/// What is wrong with a value; nothing where it is good.
using FaultOf = std::function<std::string(const std::string&)>;

/// What is wrong with the command line as a whole.
class CommandLineError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An option of a command, or its argument. What it was given has no shields.
class Option {
public:
    explicit Option(CLI::Option* option) : m_Option(option) {}

    /// What help calls the value.
    Option& Named(const std::string& value);
    Option& Check(const FaultOf& faultOf);
    /// Words that stand for values, in capitals or not.
    Option& Synonyms(const std::map<std::string, std::string>& values);
    Option& Required();
    Option& Needs(const Option& other);
    Option& Excludes(const Option& other);

    /// All that it was given.
    std::vector<std::string> Values() const;

private:
    CLI::Option* m_Option; ///< belongs to its command
};

/// A command, or the tool itself, to which all others belong.
class Command {
public:
    /// `chosen` gets what is to be done.
    Command(CLI::App& command, Action& chosen) : m_Command(&command), m_Chosen(&chosen) {}

    Command AddCommand(const std::string& name, const std::string& description) const;
    void AddAlias(const std::string& name) const;
    void SetFooter(const std::string& footer) const;
    /// Nothing can be done without one of its commands.
    void RequireCommand() const;

    Option AddFlag(const std::string& names, bool& flag, const std::string& description) const;
    Option AddFlag(const std::string& names, const std::function<void()>& set,
                   const std::string& description) const;
    Option AddText(const std::string& names, std::string& text, const std::string& description) const;
    /// `set` is given the value once it is checked.
    Option AddText(const std::string& names, const std::function<void(const std::string&)>& set,
                   const std::string& description) const;
    /// A flag that sets the text to `bare`, or after an equals sign to another one.
    Option AddFlagOrText(const std::string& name, std::string& text, const std::string& bare,
                         const std::string& description) const;
    Option AddNumber(const std::string& names, int& number, const std::string& description) const;
    /// Decimal, without leading zeros.
    Option AddNumber(const std::string& names, int& number, int least, int most,
                     const std::string& description) const;
    Option AddNumber(const std::string& names, std::optional<int>& number, int least, int most,
                     const std::string& description) const;
    Option AddNumber(const std::string& names, unsigned int& number, unsigned int least, unsigned int most,
                     const std::string& description) const;
    /// Each of its values at most once with the option before it.
    Option AddTexts(const std::string& names, const std::string& description) const;

    Option AddArgument(const std::string& name, const std::string& description) const;
    Option AddArguments(const std::string& name, const std::string& description) const;

    /// One that was added before.
    Option OptionNamed(const std::string& name) const;

    /// What is done where the command line names this command and none of its own.
    void SetAction(Action action) const;

private:
    CLI::App* m_Command;
    Action* m_Chosen;
};

} // namespace qxpdu

#endif
