// The standards' tables, read from the data files in the folder `tables` when they are first asked for.
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_TABLES_H
#define TESTS_REFERENCE_MESSAGES_MODEL_TABLES_H

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace plain {

/// One row of a file: what stands in each column, by the column's name.
using Row = std::map<std::string, std::string>;
/// The rows of tables/NAME.tsv. Throws std::runtime_error for a file that is missing or has a row of another
/// length.
std::vector<Row> ReadTable(const std::string& name);

/// What a cell of an alphabet's table holds.
struct Cell {
    enum Kind { NONE, CHARACTER, ESCAPE, CONTROL } kind = NONE;
    char32_t character = 0;
    bool readOnly = false;
};
using Alphabet = std::array<Cell, 128>;

/// TP-DCS; -1 or empty for what a value does not say.
struct Coding {
    std::string group, alphabet;
    bool compressed = false;
    int messageClass = -1;
    std::string waiting, indication, sense;
    bool reserved = false;
    bool operator==(const Coding&) const = default;
};

/// A bit or some neighbouring ones of a TPDU's first octet.
struct Bits {
    std::string field;
    int first = 0, last = 0;
};

struct ElementRule {
    std::string name;
    bool once = false, reserved = false;
    std::size_t least = 0, most = 255;
    int excludes = -1;
};

/// Minutes of a relative validity: those of the range's first value, and of each further one.
struct Relative {
    int from = 0, to = 0, first = 0, step = 0;
};

struct Tables {
    std::map<int, Alphabet> locking, single;        ///< by the language's value; 0 is the default alphabet
    std::array<Coding, 256> coding;                 ///< by TP-DCS
    std::array<ElementRule, 256> elements;          ///< by identifier
    std::map<std::string, std::vector<Bits>> first; ///< the first octet, by type
    std::vector<Relative> relative;                 ///< validity
    std::map<std::string, std::array<bool, 256>> reserved; ///< TP-PID, TP-ST, TP-FCS, TP-CT: which values are
    std::map<int, std::array<std::string, 2>> types;       ///< by TP-MTI: the type to the mobile and from it
};

const Tables& TheTables();

/// The characters of a table that may be written.
std::u32string CharactersOf(const Alphabet& alphabet);

} // namespace plain

#endif
