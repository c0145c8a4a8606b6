#include "support/DictionaryBuilder.h"

#include <iostream>

/// Makes a `DictionaryFolder` in the folder named on the command line: "Two" with two dictionaries, and "Many" with 25.
int main(int argc, char** argv) {
    using namespace velmarin::test;
    if (argc != 2) {
        std::cerr << "one folder is needed\n";
        return 2;
    }
    const auto root = std::filesystem::path(argv[1]) / "DictionaryFolder";
    const auto words = [](const char* name) {
        DictionaryBuilder builder(name);
        builder.entry("apple", "1.bmp").entry("banana", "2.bmp").entry("cherry", "3.bmp").entry("zzz", "4.bmp");
        for (int page = 1; page <= 4; ++page)
            builder.picture(std::to_string(page) + ".bmp", oneBitBmp(200 * page, 3000));
        return builder;
    };
    GroupBuilder("Two")
        .dictionary(words("A"))
        .dictionary(words("B"))
        .preferences("Pair\t0\t\nB\t2\nA\t0\n")
        .writeTo(root);
    GroupBuilder many("Many");
    for (int i = 10; i < 35; ++i)
        many.dictionary(words(("D" + std::to_string(i)).c_str()));
    many.writeTo(root);
    return 0;
}
