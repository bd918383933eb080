// write_vectors FOLDER: writes the vectors of the second reading anew.
#include <cstdio>
#include <exception>
#include <fstream>

#include "Vectors.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("write_vectors FOLDER: writes the vectors of the second reading into tests/vectors\n",
                   stderr);
        return 2;
    }
    try {
        for (const plain::VectorFile& file : plain::WrittenFiles()) {
            std::ofstream out(std::string(argv[1]) + "/" + file.name + ".jsonl", std::ios::binary);
            out << plain::TextOf(file);
            if (!out.flush())
                throw std::runtime_error("cannot write " + file.name);
            std::printf("%s: %zu vectors\n", file.name.c_str(), file.vectors.size());
        }
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
