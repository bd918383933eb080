// The options of a command as a program gives them: "--name" or "--name=value", and inputs after "--". It
// stands in place of the parser of the command line, which would be half of the module.
#include <algorithm>
#include <charconv>
#include <deque>
#include <iterator>
#include <limits>
#include <memory>
#include <sstream>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "commands/Command.h"
#include "commands/Commands.h"
#include "web/module/Options.h"

namespace CLI {

/// What a command takes by one name. All of its values are checked and set when they are all known.
class Option {
public:
    Option(std::string names, std::function<void(const std::string&)> set)
        : m_Names(std::move(names)), m_Set(std::move(set)) {}

    const std::string& Names() const { return m_Names; }
    const std::vector<std::string>& Values() const { return m_Values; }
    bool IsFlag() const { return m_Bare.has_value(); }

    /// The option may be given by its name alone, which is as good as this value.
    void MayBeBare(std::string value) { m_Bare = std::move(value); }
    /// No other value than that, either.
    void MustBeBare() {
        MayBeBare({});
        Check([](const std::string& value) { return value.empty() ? "" : value + " is no value of a flag"; });
    }
    void Check(qxpdu::FaultOf faultOf) { m_FaultsOf.push_back(std::move(faultOf)); }
    void Synonyms(std::map<std::string, std::string> values) { m_Synonyms = std::move(values); }
    void Require() { m_IsRequired = true; }
    void Needs(const Option& other) { m_Needs.push_back(&other); }
    void Excludes(const Option& other) { m_Excludes.push_back(&other); }

    void Take(std::optional<std::string> value) {
        if (!value && !m_Bare)
            throw qxpdu::CommandLineError(fmt::format("{}: a value is required", m_Names));
        m_Values.push_back(value ? std::move(*value) : *m_Bare);
    }

    /// Throws CommandLineError.
    void Set() const {
        if (m_IsRequired && m_Values.empty())
            throw qxpdu::CommandLineError(m_Names + " is required");
        if (m_Values.empty())
            return;
        for (const Option* other : m_Needs) {
            if (other->m_Values.empty())
                throw qxpdu::CommandLineError(fmt::format("{} requires {}", m_Names, other->m_Names));
        }
        for (const Option* other : m_Excludes) {
            if (!other->m_Values.empty())
                throw qxpdu::CommandLineError(fmt::format("{} excludes {}", m_Names, other->m_Names));
        }
        for (const std::string& value : m_Values)
            SetTo(Meant(value));
    }

private:
    std::string Meant(const std::string& value) const {
        const auto meant = m_Synonyms.find(value);
        return meant == m_Synonyms.end() ? value : meant->second;
    }

    void SetTo(const std::string& value) const {
        for (const qxpdu::FaultOf& faultOf : m_FaultsOf) {
            if (const std::string fault = faultOf(value); !fault.empty())
                throw qxpdu::CommandLineError(fmt::format("{}: {}", m_Names, fault));
        }
        m_Set(value);
    }

    std::string m_Names; ///< "-j,--threads"
    std::function<void(const std::string&)> m_Set;
    std::optional<std::string> m_Bare;
    std::vector<qxpdu::FaultOf> m_FaultsOf;
    std::map<std::string, std::string> m_Synonyms;
    bool m_IsRequired = false;
    std::vector<const Option*> m_Needs;
    std::vector<const Option*> m_Excludes;
    std::vector<std::string> m_Values;
};

/// A command, with those that belong to it.
class App {
public:
    App& AddCommand(const std::string& name) { return m_Commands[name]; }

    Option& Add(const std::string& names, std::function<void(const std::string&)> set) {
        return m_Options.emplace_back(names, std::move(set));
    }

    Option& AddInputs(const std::string& name) {
        m_Inputs = &Add(name, [](const std::string&) {});
        return *m_Inputs;
    }

    void SetAction(qxpdu::Action action) { m_Action = std::move(action); }

    /// Throws CommandLineError.
    Option& Named(std::string_view name) {
        for (Option& option : m_Options) {
            std::istringstream names(option.Names());
            for (std::string each; std::getline(names, each, ',');) {
                if (each == name)
                    return option;
            }
        }
        throw qxpdu::CommandLineError(fmt::format("{} is no option", name));
    }

    /// What the words name, with its options set. Throws CommandLineError.
    const qxpdu::Action& Parse(const std::vector<std::string>& words) {
        auto word = words.begin();
        App* command = this;
        while (word != words.end() && command->m_Commands.count(*word) != 0)
            command = &command->m_Commands.at(*word++);
        if (!command->m_Action)
            throw qxpdu::CommandLineError(word == words.end() ? "a command is required"
                                                              : *word + " is no command");
        command->TakeWords({word, words.end()});
        return command->m_Action;
    }

private:
    void TakeWords(const std::vector<std::string>& words) {
        bool areInputs = false;
        for (const std::string& word : words) {
            if (areInputs)
                TakeInput(word);
            else if (word == "--")
                areInputs = true;
            else if (const std::size_t end = word.find('='); end != std::string::npos)
                Named(word.substr(0, end)).Take(word.substr(end + 1));
            else
                Named(word).Take(std::nullopt);
        }
        for (const Option& option : m_Options)
            option.Set();
    }

    void TakeInput(const std::string& word) {
        if (m_Inputs == nullptr)
            throw qxpdu::CommandLineError(word + " is of no use");
        m_Inputs->Take(word);
    }

    std::map<std::string, App> m_Commands;
    std::deque<Option> m_Options;
    Option* m_Inputs = nullptr;
    qxpdu::Action m_Action;
};

} // namespace CLI

namespace qxpdu {

namespace {

template <typename Number>
std::optional<Number> DecimalIn(const std::string& text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const bool isPadded = text.size() > 1 && text.front() == '0';
    return error == std::errc() && stop == end && !isPadded ? std::optional(number) : std::nullopt;
}

/// `set` is given the number.
template <typename Number, typename Set>
Option Bounded(CLI::App& command, const std::string& names, Number least, Number most, Set set) {
    CLI::Option& option =
        command.Add(names, [set](const std::string& text) { set(*DecimalIn<Number>(text)); });
    option.Check([least, most](const std::string& text) {
        const std::optional<Number> number = DecimalIn<Number>(text);
        const bool isGood = number && *number >= least && *number <= most;
        return isGood ? std::string() : fmt::format("{} is no number from {} to {}", text, least, most);
    });
    return Option(&option);
}

} // namespace

// What help says is of no use here.

Option& Option::Named(const std::string& /*value*/) {
    return *this;
}

Option& Option::Check(const FaultOf& faultOf) {
    if (faultOf)
        m_Option->Check(faultOf);
    return *this;
}

Option& Option::Synonyms(const std::map<std::string, std::string>& values) {
    m_Option->Synonyms(values);
    return *this;
}

Option& Option::Required() {
    m_Option->Require();
    return *this;
}

Option& Option::Needs(const Option& other) {
    m_Option->Needs(*other.m_Option);
    return *this;
}

Option& Option::Excludes(const Option& other) {
    m_Option->Excludes(*other.m_Option);
    return *this;
}

std::vector<std::string> Option::Values() const {
    return m_Option->Values();
}

Command Command::AddCommand(const std::string& name, const std::string& /*description*/) const {
    return {m_Command->AddCommand(name), *m_Chosen};
}

void Command::AddAlias(const std::string& /*name*/) const {}

void Command::SetFooter(const std::string& /*footer*/) const {}

void Command::RequireCommand() const {}

Option Command::AddFlag(const std::string& names, bool& flag, const std::string& description) const {
    return AddFlag(
        names, [&flag] { flag = true; }, description);
}

Option Command::AddFlag(const std::string& names, const std::function<void()>& set,
                        const std::string& /*description*/) const {
    CLI::Option& option = m_Command->Add(names, [set](const std::string&) { set(); });
    option.MustBeBare();
    return Option(&option);
}

Option Command::AddText(const std::string& names, std::string& text, const std::string& description) const {
    return AddText(
        names, [&text](const std::string& value) { text = value; }, description);
}

Option Command::AddText(const std::string& names, const std::function<void(const std::string&)>& set,
                        const std::string& /*description*/) const {
    return Option(&m_Command->Add(names, set));
}

Option Command::AddFlagOrText(const std::string& name, std::string& text, const std::string& bare,
                              const std::string& description) const {
    const Option option = AddText(name, text, description);
    m_Command->Named(name).MayBeBare(bare);
    return option;
}

Option Command::AddNumber(const std::string& names, int& number, const std::string& description) const {
    return AddNumber(names, number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                     description);
}

Option Command::AddNumber(const std::string& names, int& number, int least, int most,
                          const std::string& /*description*/) const {
    return Bounded(*m_Command, names, least, most, [&number](int value) { number = value; });
}

Option Command::AddNumber(const std::string& names, std::optional<int>& number, int least, int most,
                          const std::string& /*description*/) const {
    return Bounded(*m_Command, names, least, most, [&number](int value) { number = value; });
}

Option Command::AddNumber(const std::string& names, unsigned int& number, unsigned int least,
                          unsigned int most, const std::string& /*description*/) const {
    return Bounded(*m_Command, names, least, most, [&number](unsigned int value) { number = value; });
}

Option Command::AddTexts(const std::string& names, const std::string& /*description*/) const {
    return Option(&m_Command->Add(names, [](const std::string&) {}));
}

Option Command::AddArgument(const std::string& name, const std::string& /*description*/) const {
    return Option(&m_Command->AddInputs(name));
}

Option Command::AddArguments(const std::string& name, const std::string& description) const {
    return AddArgument(name, description);
}

Option Command::OptionNamed(const std::string& name) const {
    return Option(&m_Command->Named(name));
}

void Command::SetAction(Action action) const {
    m_Command->SetAction(std::move(action));
}

PreparedCommand::PreparedCommand(const std::vector<std::string>& words)
    : m_Commands(std::make_unique<CLI::App>()) {
    const Command parent(*m_Commands, m_Action);
    const auto isNamed = [&words](std::string_view name) { return !words.empty() && words.front() == name; };
    // One alone, as most have dozens of options.
    constexpr std::pair<std::string_view, void (*)(const Command&)> c_commands[] = {{"encode", AddEncode},
                                                                                    {"decode", AddDecode},
                                                                                    {"count", AddCount},
                                                                                    {"inspect", AddInspect},
                                                                                    {"cell", AddCell}};
    for (const auto& [name, add] : c_commands) {
        if (isNamed(name))
            add(parent);
    }
    m_Action = m_Commands->Parse(words);
}

PreparedCommand::~PreparedCommand() = default;

int PreparedCommand::Run(const Streams& streams) const {
    return m_Action(streams);
}

} // namespace qxpdu
