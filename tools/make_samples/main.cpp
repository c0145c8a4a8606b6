#include <cstdio>
#include <exception>
#include <string>

#include <CLI/CLI.hpp>

#include "make_samples/Catalogue.h"
#include "make_samples/SampleFolder.h"

int main(int argc, char** argv) {
    CLI::App app(
        "Makes a DictionaryFolder of sample dictionaries to try Velmarin with. Their pages are typeset from the "
        "data of the Debian packages dict-*.");
    std::string folder;
    std::string dictFolder = "/usr/share/dictd";
    app.add_option("FOLDER", folder, "The folder to make. Nothing is done if it exists and is not empty")->required();
    app.add_option("--dict-dir", dictFolder, "The folder with the .index and .dict.dz files")->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    try {
        const bool made = velmarin::makeSampleFolder(folder, dictFolder, velmarin::allSamples());
        std::printf("%s %s\n", folder.c_str(), made ? "is made" : "exists already");
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "velmarin-make-samples: %s\n", failure.what());
        return 2;
    }
}
