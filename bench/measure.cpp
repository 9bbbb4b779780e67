// Measures the size of one folder as the disk's breakdown, the cleanup catalogue and the list of apps do: bench_measure
// FOLDER

#include <cstdlib>

#include <fmt/format.h>

#include "core/allocated_size.h"

int main(int argc, char **argv)
{
    if (argc != 2) {
        fmt::print(stderr, "usage: bench_measure FOLDER\n");
        return 2;
    }
    fmt::print("{} bytes\n", corvane::allocatedSize(argv[1]));
    return EXIT_SUCCESS;
}
