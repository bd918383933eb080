#include "commands/Command.h"

#include <utility>

#include <CLI/CLI.hpp>

#include "commands/Shields.h"

namespace qxpdu {

namespace {

constexpr int c_anyNumber = CLI::detail::expected_max_vector_size;

/// What would be read as octal.
std::string FaultOfDecimal(const std::string& text) {
    return text.size() > 1 && text.front() == '0' ? text + " is not decimal without leading zeros" : "";
}

template <typename Number>
CLI::Option* Bounded(CLI::Option* option, Number least, Number most) {
    return option->check(FaultOfDecimal)->check(CLI::Range(least, most).description(""))->type_name("N");
}

} // namespace

Option& Option::Named(const std::string& value) {
    m_Option->type_name(value);
    return *this;
}

Option& Option::Check(const FaultOf& faultOf) {
    m_Option->check([faultOf](const std::string& value) { return faultOf(Unshielded(value)); });
    return *this;
}

Option& Option::Synonyms(const std::map<std::string, std::string>& values) {
    m_Option->transform(CLI::Transformer(values, CLI::ignore_case).description(""));
    return *this;
}

Option& Option::Required() {
    m_Option->required();
    return *this;
}

Option& Option::Needs(const Option& other) {
    m_Option->needs(other.m_Option);
    return *this;
}

Option& Option::Excludes(const Option& other) {
    m_Option->excludes(other.m_Option);
    return *this;
}

std::vector<std::string> Option::Values() const {
    std::vector<std::string> values;
    for (const std::string& value : m_Option->results())
        values.push_back(Unshielded(value));
    return values;
}

Command Command::AddCommand(const std::string& name, const std::string& description) const {
    return {*m_Command->add_subcommand(name, description), *m_Chosen};
}

void Command::AddAlias(const std::string& name) const {
    m_Command->alias(name);
}

void Command::SetFooter(const std::string& footer) const {
    m_Command->footer(footer);
}

void Command::RequireCommand() const {
    m_Command->require_subcommand(1);
}

Option Command::AddFlag(const std::string& names, bool& flag, const std::string& description) const {
    return Option(m_Command->add_flag(names, flag, description));
}

Option Command::AddFlag(const std::string& names, const std::function<void()>& set,
                        const std::string& description) const {
    return Option(m_Command->add_flag_callback(names, set, description));
}

Option Command::AddText(const std::string& names, std::string& text, const std::string& description) const {
    return AddText(
        names, [&text](const std::string& value) { text = value; }, description);
}

Option Command::AddText(const std::string& names, const std::function<void(const std::string&)>& set,
                        const std::string& description) const {
    return Option(m_Command->add_option_function<std::string>(
        names, [set](const std::string& value) { set(Unshielded(value)); }, description));
}

Option Command::AddFlagOrText(const std::string& name, std::string& text, const std::string& bare,
                              const std::string& description) const {
    return Option(m_Command->add_flag(name + '{' + bare + '}', text, description));
}

Option Command::AddNumber(const std::string& names, int& number, const std::string& description) const {
    return Option(m_Command->add_option(names, number, description)->type_name("N"));
}

Option Command::AddNumber(const std::string& names, int& number, int least, int most,
                          const std::string& description) const {
    return Option(Bounded(m_Command->add_option(names, number, description), least, most));
}

Option Command::AddNumber(const std::string& names, std::optional<int>& number, int least, int most,
                          const std::string& description) const {
    CLI::Option* const option = m_Command->add_option_function<int>(
        names, [&number](int value) { number = value; }, description);
    return Option(Bounded(option, least, most));
}

Option Command::AddNumber(const std::string& names, unsigned int& number, unsigned int least,
                          unsigned int most, const std::string& description) const {
    return Option(Bounded(m_Command->add_option(names, number, description), least, most));
}

Option Command::AddTexts(const std::string& names, const std::string& description) const {
    return Option(m_Command->add_option(names, description)->expected(1, c_anyNumber));
}

Option Command::AddArgument(const std::string& name, const std::string& description) const {
    return Option(m_Command->add_option(name, description)->type_name(""));
}

Option Command::AddArguments(const std::string& name, const std::string& description) const {
    return Option(m_Command->add_option(name, description)->expected(c_anyNumber)->type_name(""));
}

Option Command::OptionNamed(const std::string& name) const {
    return Option(m_Command->get_option(name));
}

void Command::SetAction(Action action) const {
    m_Command->callback([command = m_Command, chosen = m_Chosen, action = std::move(action)] {
        if (command->get_subcommands().empty())
            *chosen = action;
    });
}

} // namespace qxpdu
