#include "model/Tables.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace plain {

namespace {

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '\t');)
        cells.push_back(cell);
    return cells;
}

int Hex(const std::string& text) {
    return std::stoi(text, nullptr, 16);
}
int Number(const std::string& text) {
    return std::stoi(text);
}
bool Yes(const std::string& text) {
    return text == "yes";
}
std::string Word(const std::string& text) {
    return text == "-" ? std::string() : text;
}

Cell CellOf(const std::string& text) {
    if (text == "-")
        return {};
    if (text == "ESC")
        return {Cell::ESCAPE, 0, false};
    if (text == "CTRL")
        return {Cell::CONTROL, 0, false};
    return {Cell::CHARACTER, static_cast<char32_t>(Hex(text)), text.back() == '*'};
}

std::map<int, Alphabet> Alphabets(const std::string& file) {
    std::map<std::string, int> languages = {{"default", 0}};
    for (Row& row : ReadTable("languages")) {
        std::string column = row["name"];
        column[0] = static_cast<char>(column[0] - 'A' + 'a');
        languages[column] = Number(row["value"]);
    }
    std::map<int, Alphabet> alphabets;
    for (Row& row : ReadTable(file))
        for (const auto& [column, text] : row)
            if (column != "septet")
                alphabets[languages.at(column)].at(static_cast<std::size_t>(Hex(row.at("septet")))) =
                    CellOf(text);
    return alphabets;
}

std::array<Coding, 256> Codings() {
    std::array<Coding, 256> codings;
    for (Row& row : ReadTable("data-coding"))
        codings.at(static_cast<std::size_t>(Hex(row["value"]))) = {
            row["group"],           row["alphabet"],
            Yes(row["compressed"]), row["class"] == "-" ? -1 : Number(row["class"]),
            Word(row["waiting"]),   Word(row["indication"]),
            Word(row["sense"]),     Yes(row["reserved"])};
    return codings;
}

std::array<ElementRule, 256> Elements() {
    std::array<ElementRule, 256> elements;
    for (Row& row : ReadTable("header-elements"))
        for (int i = Hex(row["from"]); i <= Hex(row["to"]); ++i) {
            ElementRule& element = elements.at(static_cast<std::size_t>(i));
            element.name = row["name"];
            element.once = row["times"] == "once";
            element.reserved = Yes(row["reserved"]);
            if (row["least"] != "-")
                element.least = static_cast<std::size_t>(Number(row["least"]));
            if (row["most"] != "-")
                element.most = static_cast<std::size_t>(Number(row["most"]));
            if (row["excludes"] != "-")
                element.excludes = Hex(row["excludes"]);
        }
    return elements;
}

std::map<std::string, std::vector<Bits>> FirstOctets() {
    std::map<std::string, std::vector<Bits>> types;
    for (Row& row : ReadTable("first-octet")) {
        const std::string bits = row["bits"];
        types[row["type"]].push_back({row["field"], bits.front() - '0', bits.back() - '0'});
    }
    return types;
}

std::array<bool, 256> Reserved(const std::string& file) {
    std::array<bool, 256> reserved{};
    for (Row& row : ReadTable(file))
        for (int i = Hex(row["from"]); i <= Hex(row["to"]); ++i)
            reserved.at(static_cast<std::size_t>(i)) =
                row["name"] == "reserved" || row["name"] == "undefined";
    return reserved;
}

Tables Load() {
    Tables tables;
    tables.locking = Alphabets("locking-shift");
    tables.single = Alphabets("single-shift");
    tables.coding = Codings();
    tables.elements = Elements();
    tables.first = FirstOctets();
    for (Row& row : ReadTable("relative-validity"))
        tables.relative.push_back(
            {Hex(row["from"]), Hex(row["to"]), Number(row["first"]), Number(row["step"])});
    tables.reserved = {{"TP-PID", Reserved("protocol-identifiers")},
                       {"TP-ST", Reserved("statuses")},
                       {"TP-FCS", Reserved("failure-causes")},
                       {"TP-CT", Reserved("command-types")}};
    for (Row& row : ReadTable("message-types"))
        tables.types[Number(row["value"])].at(row["direction"] == "to-mobile" ? 0 : 1) = Word(row["name"]);
    return tables;
}

} // namespace

std::vector<Row> ReadTable(const std::string& name) {
    const std::string path = std::string(QX_TABLES) + "/" + name + ".tsv";
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    std::vector<std::string> columns;
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind('#', 0) == 0)
            continue;
        const std::vector<std::string> cells = Cells(line);
        if (columns.empty()) {
            columns = cells;
            continue;
        }
        if (cells.size() != columns.size())
            throw std::runtime_error(path + ": a row of another length: " + line);
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < cells.size(); ++i)
            row[columns[i]] = cells[i];
    }
    return rows;
}

const Tables& TheTables() {
    static const Tables tables = Load();
    return tables;
}

std::u32string CharactersOf(const Alphabet& alphabet) {
    std::u32string characters;
    for (const Cell& cell : alphabet)
        if (cell.kind == Cell::CHARACTER && !cell.readOnly)
            characters += cell.character;
    return characters;
}

} // namespace plain
