// Writes the test air: captured streams of three invented satellites, a folder each, and the
// satellite list that leads there.

#include "tools/multiplex/air.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: tessaview3-test-air FOLDER\n";
        return 2;
    }
    try {
        test::writeAir(test::testAir(), argv[1]);
    } catch (const std::exception& e) {
        std::cerr << "tessaview3-test-air: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
