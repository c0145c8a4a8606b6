#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <string>
#include <thread>

#include <CLI/CLI.hpp>

#include "make_samples/Catalogue.h"
#include "make_samples/SampleFolder.h"

int main(int argc, char** argv) {
    CLI::App app("Makes a DictionaryFolder of sample dictionaries from the data of the packages dict-*: scanned books "
                 "to try Velmarin with, typeset here.");
    std::string folder;
    std::string dictFolder = "/usr/share/dictd";
    std::size_t processes = std::max(std::thread::hardware_concurrency(), 1U);
    app.add_option("FOLDER", folder,
                   "The folder to make; in one that has anything in it, only outdated samples are made again")
        ->required();
    app.add_option("--dict-dir", dictFolder, "Where the dictionaries' .index and .dict.dz files are")
        ->capture_default_str();
    app.add_option("--processes", processes, "How many dictionaries are made at a time")->check(CLI::Range(1, 64));
    CLI11_PARSE(app, argc, argv);
    try {
        const bool made = velmarin::makeSampleFolder(folder, dictFolder, velmarin::allSamples(), processes,
                                                     [](const std::string& line) {
                                                         std::printf("%s\n", line.c_str());
                                                         std::fflush(stdout);
                                                     });
        std::printf("%s %s\n", folder.c_str(), made ? "is made" : "is up to date");
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "velmarin-make-samples: %s\n", failure.what());
        return 2;
    }
}
