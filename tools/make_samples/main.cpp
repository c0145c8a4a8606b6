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
    CLI::App app(
        "Makes a DictionaryFolder of sample dictionaries to try Velmarin with. Their pages are typeset from the "
        "data of the Debian packages dict-*.");
    std::string folder;
    std::string dictFolder = "/usr/share/dictd";
    std::size_t processes = std::max(std::thread::hardware_concurrency(), 1U);
    app.add_option("FOLDER", folder, "The folder to make. Nothing is done if it exists and is not empty")->required();
    app.add_option("--dict-dir", dictFolder, "The folder with the .index and .dict.dz files")->capture_default_str();
    app.add_option("--processes", processes, "How many dictionaries to make at a time")->check(CLI::Range(1, 64));
    CLI11_PARSE(app, argc, argv);
    try {
        const bool made = velmarin::makeSampleFolder(folder, dictFolder, velmarin::allSamples(), processes,
                                                     [](const std::string& line) {
                                                         std::printf("%s\n", line.c_str());
                                                         std::fflush(stdout);
                                                     });
        std::printf("%s %s\n", folder.c_str(), made ? "is made" : "exists already");
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "velmarin-make-samples: %s\n", failure.what());
        return 2;
    }
}
