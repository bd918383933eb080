// write_vectors FOLDER: writes the vectors of the second reading anew.
#include <cstdio>
#include <exception>
#include <fstream>

#include "CellVectors.h"
#include "OutgoingVectors.h"
#include "Vectors.h"

namespace {

void WriteFile(const std::string& folder, const std::string& name, const std::string& text,
               std::size_t vectors) {
    std::ofstream out(folder + "/" + name + ".jsonl", std::ios::binary);
    out << text;
    if (!out.flush())
        throw std::runtime_error("cannot write " + name);
    std::printf("%s: %zu vectors\n", name.c_str(), vectors);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("write_vectors FOLDER: writes the vectors of the second reading into tests/vectors\n",
                   stderr);
        return 2;
    }
    try {
        for (const plain::VectorFile& file : plain::WrittenFiles())
            WriteFile(argv[1], file.name, plain::TextOf(file), file.vectors.size());
        const std::vector<plain::CellVector> cell = plain::CellVectors();
        WriteFile(argv[1], plain::c_cellFile, plain::TextOf(cell), cell.size());
        const std::vector<plain::OutgoingVector> outgoing = plain::OutgoingVectors();
        WriteFile(argv[1], plain::c_outgoingFile, plain::TextOf(outgoing), outgoing.size());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
