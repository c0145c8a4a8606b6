#include "cli/CommandLine.h"

int main(int argc, char** argv) {
    return velmarin::runCommandLine(argc, argv);
}
