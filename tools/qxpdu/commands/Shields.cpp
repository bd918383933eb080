#include "commands/Shields.h"

namespace qxpdu {

namespace {

/// Put before an argument that CLI11 is to leave as it is. It would take "[a,b]" for a list wherever
/// several values are allowed, and "++" for the end of a command, and forget that "--" came before as soon as
/// one input was there.
constexpr char c_shield = '\1';

/// Whether the word belongs to the flag before it, which may have a value.
bool IsValueOf(const std::string& flag, const std::string& word) {
    return flag == c_reportOption && (word == "first" || word == "all");
}

} // namespace

std::vector<std::string> Shielded(const std::vector<std::string>& arguments) {
    std::vector<std::string> shielded;
    bool onlyInputs = false;
    bool areFiles = false;
    for (const std::string& argument : arguments) {
        const bool isOption = argument.starts_with('-') && argument != "-";
        if (areFiles && !isOption && shielded.back() != c_fileOption)
            shielded.emplace_back(c_fileOption);
        areFiles = !onlyInputs && (isOption ? argument == c_fileOption : areFiles);
        if (!onlyInputs && !shielded.empty() && IsValueOf(shielded.back(), argument)) {
            shielded.back() += '=' + argument;
            continue;
        }
        const bool isList = argument.starts_with('[') && argument.ends_with(']');
        if (onlyInputs || isList || argument == "++" || argument.starts_with(c_shield))
            shielded.push_back(c_shield + argument);
        else if (argument == "--")
            onlyInputs = true;
        else
            shielded.push_back(argument);
    }
    return shielded;
}

std::string WithoutShields(std::string message) {
    std::erase(message, c_shield);
    return message;
}

std::string Unshielded(const std::string& argument) {
    return argument.starts_with(c_shield) ? argument.substr(1) : argument;
}

} // namespace qxpdu
