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

/// Turns rows with a PDU into rows with its columns.
class RowConverter {
public:
    RowConverter(const RowOptions& options, const ReadRow& read) : m_Options(options), m_Read(read) {
        if (m_Options.isEachLine)
            SettleEachLine();
    }

    Afterwards Convert(const Input& line, Console& console) {
        if (m_Options.isEachLine && (line.text.empty() || line.text == "\r")) {
            console.Line("");
            return {};
        }
        Cut cut = CutAt(line.text, m_Options.inputColumn);
        if (m_Options.hasNoHeading || line.source != Input::Source::Line || line.number != 1) {
            WriteRow(cut, line, ReadColumn(cut, line, console), console);
            return {};
        }
        return [this, cut = std::move(cut)](Console& later) {
            if (!std::exchange(m_HasHeading, true))
                later.Line(cut.before + show::TabSeparatedNames(m_Options.columns) + cut.after);
        };
    }

    /// Of a line that nobody looks into, the other columns are empty as well.
    void Fail(Console& console, const Input& line, const std::string& error) const {
        WriteRow(CutAt({}, m_Options.inputColumn), line, Failed(line, error, console), console);
    }

private:
    void SettleEachLine() {
        std::vector<show::Column>& columns = m_Options.columns;
        const auto has = [&](show::Column column) {
            return std::find(columns.begin(), columns.end(), column) != columns.end();
        };
        if (has(show::Column::Input))
            throw CommandLineError("--each-line: the column input counts lines, and a line goes by itself");
        if (!has(show::Column::Error))
            columns.push_back(show::Column::Error);
        m_Options.inputColumn = std::max(m_Options.inputColumn, 1U);
        m_Options.hasNoHeading = true;
    }

    show::Row ReadColumn(const Cut& cut, const Input& line, Console& console) const {
        try {
            if (!cut.pdu)
                throw InputError("the line ends before its PDU");
            Input input = line;
            input.text = *cut.pdu;
            return m_Read(input, console);
        } catch (const InputError& error) {
            return Failed(line, error.what(), console);
        }
    }

    show::Row Failed(const Input& line, const std::string& error, Console& console) const {
        if (!m_Options.isEachLine)
            console.Error(NameOf(line), error);
        show::Row row;
        row[show::Column::Error] = error;
        return row;
    }

    /// Puts the columns in place of the PDU; the others pass through.
    void WriteRow(const Cut& cut, const Input& line, show::Row row, Console& console) const {
        row[show::Column::Input] = NameOf(line);
        console.Line(cut.before + show::TabSeparated(row, m_Options.columns) + cut.after);
    }

    RowOptions m_Options;
    const ReadRow& m_Read;
    bool m_HasHeading = false; ///< written
};

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
    command
        .AddFlag(
            "--each-line", options.isEachLine,
            "A line out for each line in, so that they may be read in pieces: an error is in its line, an "
            "empty line stays empty, and there is no heading")
        .Needs(columns)
        .Excludes(command.OptionNamed("--join"));
}

void ShowRow(const RowOptions& options, const show::Row& row, Console& console) {
    console.Line(options.isBrief ? show::BriefLine(row) : show::TabSeparated(row, options.columns));
}

std::string HeadingOf(const RowOptions& options) {
    const bool isWanted = !options.columns.empty() && !options.hasNoHeading;
    return isWanted ? show::TabSeparatedNames(options.columns) + '\n' : std::string();
}

int ConvertRows(const ConversionSettings& settings, const RowOptions& options, const Streams& streams,
                const ReadRow& read) {
    RowConverter rows(options, read);
    Converter converter{LineKind::Text,
                        [&rows](const Input& line, Console& console) { return rows.Convert(line, console); }};
    converter.fail = [&rows](Console& console, const Input& line, const std::string& error) {
        rows.Fail(console, line, error);
    };
    return ConvertStream(settings, streams, converter);
}

} // namespace qxpdu
