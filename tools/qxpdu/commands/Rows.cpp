#include "commands/Rows.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "characters/InputError.h"

namespace qxpdu {

namespace {

constexpr unsigned int c_maxColumn = 65535;

std::vector<show::Column> ColumnsIn(const std::string& names) {
    std::vector<show::Column> columns;
    for (std::size_t begin = 0; begin <= names.size();) {
        const std::size_t end = std::min(names.find(',', begin), names.size());
        const std::string name = names.substr(begin, end - begin);
        const std::optional<show::Column> column = show::ColumnOf(name);
        if (!column)
            throw CommandLineError(fmt::format("--columns: '{}' is none of {}", name, show::ColumnNames()));
        columns.push_back(*column);
        begin = end + 1;
    }
    return columns;
}

/// A line with the column of the PDU, where it has one, and what stands before and after it.
struct Cut {
    std::string before; ///< with the columns up to the PDU's, empty ones where the line ends
    std::optional<std::string> pdu;
    std::string after;
};

Cut CutAt(std::string line, unsigned int column) {
    if (line.ends_with('\r'))
        line.pop_back();
    std::size_t begin = 0;
    for (unsigned int number = 1; number < column; ++number) {
        const std::size_t tab = line.find('\t', begin);
        if (tab == std::string::npos)
            return {line.append(column - number, '\t'), std::nullopt, {}};
        begin = tab + 1;
    }
    const std::size_t end = std::min(line.find('\t', begin), line.size());
    return {line.substr(0, begin), line.substr(begin, end - begin), line.substr(end)};
}

show::Row ReadColumn(const Cut& cut, const Input& line, const ReadRow& read, Console& console) {
    try {
        if (!cut.pdu)
            throw InputError("the line ends before its PDU");
        Input input = line;
        input.text = *cut.pdu;
        return read(input, console);
    } catch (const InputError& error) {
        console.Error(NameOf(line), error.what());
        show::Row row;
        row[show::Column::Error] = error.what();
        return row;
    }
}

/// Puts the columns in place of the PDU; the others pass through.
void ConvertRow(const RowOptions& options, const Input& line, const ReadRow& read, Console& console) {
    const Cut cut = CutAt(line.text, options.inputColumn);
    show::Row row = ReadColumn(cut, line, read, console);
    row[show::Column::Input] = NameOf(line);
    console.Line(cut.before + show::TabSeparated(row, options.columns) + cut.after);
}

} // namespace

void AddRows(const Command& command, RowOptions& options) {
    const Option json = command.OptionNamed("--json");
    const Option jsonLines = command.OptionNamed("--jsonl");
    const Option host = command.OptionNamed("--as");
    const Option brief = command
                             .AddFlag("--brief", options.isBrief,
                                      "Write a line for each message: time, from or to, part, text")
                             .Excludes(json)
                             .Excludes(jsonLines)
                             .Excludes(host);
    const Option columns =
        command
            .AddText(
                "--columns", [&options](const std::string& names) { options.columns = ColumnsIn(names); },
                "Write a table with these columns, between tabs:\n" + show::ColumnNames())
            .Named("NAME,...")
            .Excludes(json)
            .Excludes(jsonLines)
            .Excludes(host)
            .Excludes(brief);
    command
        .AddNumber("--input-column", options.inputColumn, 1U, c_maxColumn,
                   "Lines are rows between tabs, with the PDU in column N; the others pass through")
        .Needs(columns)
        .Excludes(command.OptionNamed("--join"));
    command
        .AddFlag("--no-heading", options.hasNoHeading,
                 "The table, and the lines of --input-column, have no heading")
        .Needs(columns);
}

void ShowRow(const RowOptions& options, const show::Row& row, Console& console) {
    console.Line(options.isBrief ? show::BriefLine(row) : show::TabSeparated(row, options.columns));
}

std::string HeadingOf(const RowOptions& options) {
    const bool isWanted = !options.columns.empty() && options.inputColumn == 0 && !options.hasNoHeading;
    return isWanted ? show::TabSeparatedNames(options.columns) + '\n' : std::string();
}

int ConvertRows(const ConversionSettings& settings, const RowOptions& options, const Streams& streams,
                const ReadRow& read) {
    bool hasHeading = false;
    const auto convert = [&](const Input& line, Console& console) -> Afterwards {
        if (options.hasNoHeading || line.source != Input::Source::Line || line.number != 1) {
            ConvertRow(options, line, read, console);
            return {};
        }
        return [&, cut = CutAt(line.text, options.inputColumn)](Console& later) {
            if (!std::exchange(hasHeading, true))
                later.Line(cut.before + show::TabSeparatedNames(options.columns) + cut.after);
        };
    };
    return ConvertStream(settings, streams, {LineKind::Text, convert});
}

} // namespace qxpdu
