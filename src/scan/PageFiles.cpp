#include "scan/PageFiles.h"

#include "files/AtomicFile.h"
#include "files/SystemCalls.h"
#include "text/NumberText.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kExtensions[] = {"tif", "jpg", "png"};

/// The names of the pictures of a page without their extensions: whole, first and second half.
std::string stemOf(std::size_t page, const char* part) {
    return "p" + Format(static_cast<double>(page + 1), "0000") + part;
}

fs::path fileWith(const fs::path& folder, const std::string& stem) {
    for (const char* extension : kExtensions) {
        fs::path file = folder / (stem + "." + extension);
        std::error_code error;
        if (fs::is_regular_file(file, error) && fs::file_size(file, error) > 0)
            return file;
    }
    return {};
}

void removePictures(const fs::path& folder, std::size_t page) {
    for (const char* part : {"", "a", "b"}) {
        for (const char* extension : kExtensions) {
            std::error_code ignored;
            fs::remove(folder / (stemOf(page, part) + "." + extension), ignored);
        }
    }
}

} // namespace

std::vector<fs::path> pageFilesIn(const fs::path& folder, std::size_t page, Spread spread) {
    const fs::path first = fileWith(folder, stemOf(page, spread == Spread::None ? "" : "a"));
    if (first.empty())
        return {};
    const fs::path second = spread == Spread::None ? fs::path() : fileWith(folder, stemOf(page, "b"));
    return second.empty() ? std::vector{first} : std::vector{first, second};
}

PagePictures writePageFiles(const fs::path& folder, std::size_t page, Spread spread,
                            const std::vector<EncodedPage>& pictures) {
    if (!FolderItem(folder).CreateAsFolder())
        return {.result = Failure{FolderItem(folder), "it could not be made: " + errorInWords(errno)}};
    removePictures(folder, page);
    PagePictures written;
    for (std::size_t i = pictures.size(); i-- > 0;) {
        const char* part = spread == Spread::None ? "" : i == 0 ? "a" : "b";
        const fs::path file = folder / (stemOf(page, part) + "." + pictures[i].extension);
        if (Result result = writeFileAtomically(file, pictures[i].bytes); !result)
            return {.result = std::move(result)};
        written.files.insert(written.files.begin(), file);
    }
    return written;
}

} // namespace velmarin
