#include "commands/CommandLine.h"

#include <algorithm>
#include <new>
#include <sstream>

#include <CLI/CLI.hpp>

#include "commands/Commands.h"
#include "commands/Help.h"
#include "commands/Shields.h"
#include "show/CodeUnits.h"
#include "stream/Writer.h"

namespace qxpdu {

namespace {

constexpr const char* c_description =
    "Short messages and cell broadcast pages between their octets and their text.\n"
    "\n"
    "Inputs are the arguments or, without any, the lines of standard input, which the argument - stands for "
    "as\n"
    "well. Text is UTF-8. Octets and characters are told by their place: octets from 0, characters from 1.";

constexpr const char* c_footer =
    "'qxpdu help COMMAND' tells about one command.\n"
    "\n"
    "Results go to standard output, everything else to standard error. With --json the results are one array "
    "with\n"
    "an object for each, which names its input as \"line\" or \"argument\". An input that fails is named on\n"
    "standard error, and the others are still worked on.\n"
    "\n"
    "Exit status: 0 all inputs good, 1 some input failed, 2 command line wrong.\n"
    "\n"
    "Examples:\n"
    "  qxpdu decode --join < modem.log    the messages in the log of a modem, its parts put together\n"
    "  qxpdu encode --to +4179123 hello   the PDU of a text\n"
    "  qxpdu inspect PDU                  what each octet means, and where a PDU breaks\n"
    "  qxpdu count 'It’s 5 €'             how a text would go out, and why in UCS2";

/// Sets the description apart from the usage line, and wraps all.
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() {
        constexpr std::size_t c_leftColumn = 31; // the longest name and two blanks
        column_width(c_leftColumn);
    }

    std::string make_description(const CLI::App* command) const override {
        return Formatter::make_description(command) + '\n';
    }

    std::string make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const override {
        return Wrapped(Formatter::make_help(command, std::move(name), mode));
    }

    /// "--status-report[=first|all]" of a flag that may have a value.
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
        const std::string name = Formatter::make_option_name(option, isPositional);
        return MayHaveValue(option) ? name.substr(0, name.find('{')) + "[=" + option->get_type_name() + ']'
                                    : name;
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        return MayHaveValue(option) ? std::string() : Formatter::make_option_opts(option);
    }

private:
    static bool MayHaveValue(const CLI::Option* option) {
        return option->get_name(false, true).find('{') != std::string::npos;
    }
};

/// "Usage: qxpdu gsm encode [OPTIONS] [TEXT...]" of the command that was given, as far as it was.
std::string UsageOf(const CLI::App& tool) {
    const CLI::App* command = &tool;
    std::string name = tool.get_name();
    while (!command->get_subcommands().empty()) {
        command = command->get_subcommands().front();
        name += " " + command->get_name();
    }
    return CLI::Formatter().make_usage(command, name);
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& command) {
    return command.get_subcommands([](const CLI::App*) { return true; });
}

/// What is wrong with a word that should name one of these.
std::string NoneOf(const std::vector<const CLI::App*>& commands, const std::string& word,
                   const std::string& parent) {
    std::vector<std::string> names(commands.size());
    std::transform(commands.begin(), commands.end(), names.begin(),
                   [](const CLI::App* command) { return command->get_name(); });
    const std::string nearest = Nearest(word, names);
    return word + " is no command" + parent + (nearest.empty() ? "" : "; did you mean " + nearest + "?");
}

/// Whether a word that names no command of it is an argument.
bool TakesArguments(const CLI::App& command) {
    return !command.get_options([](const CLI::Option* option) { return option->get_positional(); }).empty();
}

/// What is wrong where the first arguments, up to an option, name no command; nothing where they do.
std::string NoCommandIn(const std::vector<std::string>& arguments, const CLI::App& tool) {
    const CLI::App* command = &tool;
    for (const std::string& word : arguments) {
        if (word.starts_with('-'))
            return {};
        const std::vector<const CLI::App*> commands = CommandsOf(*command);
        const auto named = std::find_if(commands.begin(), commands.end(), [&word](const CLI::App* candidate) {
            return candidate->check_name(word);
        });
        if (named == commands.end() && TakesArguments(*command))
            return {};
        if (named == commands.end())
            return NoneOf(commands, word, command == &tool ? "" : " of " + command->get_name());
        command = *named;
    }
    return {};
}

/// "help decode" asks for what "decode --help" does, and "help help" for what "help" does.
std::vector<std::string> WithHelpAsOption(std::vector<std::string> arguments) {
    const auto subject = std::find_if(arguments.begin(), arguments.end(),
                                      [](const std::string& argument) { return argument != "help"; });
    if (subject == arguments.begin())
        return arguments;
    arguments.erase(arguments.begin(), subject);
    arguments.emplace_back("--help");
    return arguments;
}

/// Returns the exit status.
int Refuse(std::string message, const CLI::App& tool, const Streams& streams) {
    streams.err << "qxpdu: " << show::Printable(WithoutShields(std::move(message))) << '\n' << UsageOf(tool);
    return Console::WRONG_COMMAND_LINE;
}

/// Writes lines. Returns the exit status.
int WriteText(std::string text, const Streams& streams) {
    text.pop_back(); // the last line feed
    Console console(Format::Text);
    console.Line(text);
    Writer writer(streams, Format::Text, true);
    writer.Write(console);
    return writer.Finish();
}

} // namespace

int RunTool(const std::vector<std::string>& given, const Streams& streams) {
    const std::vector<std::string> arguments = WithHelpAsOption(given);
    CLI::App tool(c_description, "qxpdu");
    tool.formatter(std::make_shared<HelpFormatter>());
    tool.footer(c_footer);
    tool.set_help_flag("-h,--help", "Say how to use the tool or the command, and exit");
    tool.set_version_flag("--version", "qxpdu " QXPDU_VERSION, "Say which version this is, and exit");
    tool.require_subcommand(1);
    Action action;
    const Command parent(tool, action);
    AddEncode(parent);
    AddDecode(parent);
    AddCount(parent);
    AddInspect(parent);
    AddCell(parent);
    AddText(parent);
    AddUcs2(parent);
    AddGsm(parent);

    std::vector<std::string> lastFirst = Shielded(arguments);
    std::reverse(lastFirst.begin(), lastFirst.end());
    try {
        tool.parse(std::move(lastFirst));
        return action(streams);
    } catch (const CLI::Success& asked) { // --help, --version
        if (std::string message = NoCommandIn(arguments, tool); !message.empty())
            return Refuse(std::move(message), tool, streams);
        std::ostringstream text;
        tool.exit(asked, text, streams.err);
        return WriteText(text.str(), streams);
    } catch (const CLI::ParseError& error) {
        std::string message = NoCommandIn(arguments, tool);
        return Refuse(message.empty() ? error.what() : std::move(message), tool, streams);
    } catch (const CommandLineError& error) {
        return Refuse(error.what(), tool, streams);
    } catch (const std::bad_alloc&) {
        streams.err << "qxpdu: out of memory\n";
        return Console::SOME_FAILED;
    }
}

} // namespace qxpdu
