#include "make_scans/ScanFiles.h"

#include "files/AtomicFile.h"

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>

#include <leptonica/allheaders.h>

#include "make_samples/Book.h"
#include "platform/ChildProgram.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;
using PixPointer = std::unique_ptr<Pix, void (*)(Pix*)>;

PixPointer owned(Pix* pix) {
    return {pix, [](Pix* old) { pixDestroy(&old); }};
}

/// The color of paper and ink by their light: what is darkened by age is brown.
l_uint32 tinted(int light) {
    const auto channel = [&](int lost) {
        return static_cast<l_uint32>(light - lost * light * (255 - light / 2) / 65025);
    };
    return (channel(4) << L_RED_SHIFT) | (channel(30) << L_GREEN_SHIFT) | (channel(85) << L_BLUE_SHIFT);
}

PixPointer pixOf(const Raster& scan, ScanTone tone) {
    PixPointer pix = owned(pixCreate(scan.width, scan.height,
                                     tone == ScanTone::Bilevel ? 1
                                     : tone == ScanTone::Grey  ? 8
                                                               : 32));
    if (!pix)
        throw std::runtime_error("not enough memory for a page");
    for (int y = 0; y < scan.height; ++y) {
        l_uint32* line = pixGetData(pix.get()) + std::ptrdiff_t{y} * pixGetWpl(pix.get());
        for (int x = 0; x < scan.width; ++x) {
            const int light = scan.row(y)[x];
            if (tone == ScanTone::Bilevel) {
                if (light < 128)
                    SET_DATA_BIT(line, x);
            } else if (tone == ScanTone::Grey) {
                SET_DATA_BYTE(line, x, light);
            } else {
                line[x] = tinted(light);
            }
        }
    }
    return pix;
}

void require(bool ok, const fs::path& target) {
    if (!ok)
        throw std::runtime_error("cannot write " + target.string());
}

void bindPdf(const std::vector<fs::path>& pictures, const fs::path& target, int dpi) {
    SARRAY* names = sarrayCreate(0);
    for (const fs::path& picture : pictures)
        sarrayAddString(names, picture.c_str(), L_COPY);
    const bool ok = saConvertFilesToPdf(names, dpi, 1, L_DEFAULT_ENCODE, 0, nullptr, target.c_str()) == 0;
    sarrayDestroy(&names);
    require(ok, target);
}

void bindTiff(const std::vector<fs::path>& pictures, const fs::path& target) {
    for (const fs::path& picture : pictures) {
        const PixPointer pix = owned(pixRead(picture.c_str()));
        const l_int32 coding = pix && pixGetDepth(pix.get()) == 1 ? IFF_TIFF_G4 : IFF_TIFF_JPEG;
        const char* mode = &picture == &pictures.front() ? "w" : "a";
        require(pix && pixWriteTiff(target.c_str(), pix.get(), coding, mode) == 0, target);
    }
}

void runTool(const char* name, std::vector<std::string> arguments) {
    const auto file = programOnPath(name, searchPathOfEnvironment());
    if (!file || !runChild({.file = *file, .arguments = std::move(arguments)}).ok())
        throw std::runtime_error(std::string(name) + " is missing or has failed");
}

/// Each page is coded by itself and removed when the book has it.
void bindDjvu(const std::vector<fs::path>& pictures, const fs::path& target, int dpi) {
    std::vector<std::string> bind{"-c", target.string()};
    for (const fs::path& picture : pictures) {
        bind.push_back(picture.string() + ".djvu");
        runTool(picture.extension() == ".tif" ? "cjb2" : "c44",
                {"-dpi", std::to_string(dpi), picture.string(), bind.back()});
    }
    runTool("djvm", bind);
    for (auto page = bind.begin() + 2; page != bind.end(); ++page)
        fs::remove(*page);
}

} // namespace

std::string scanExtension(ScanTone tone) {
    return tone == ScanTone::Bilevel ? ".tif" : ".jpg";
}

void writeScan(const fs::path& path, const Raster& scan, ScanTone tone, int dpi, int quality) {
    const PixPointer pix = pixOf(scan, tone);
    pixSetResolution(pix.get(), dpi, dpi);
    const bool failed = tone == ScanTone::Bilevel ? pixWrite(path.c_str(), pix.get(), IFF_TIFF_G4) != 0
                                                  : pixWriteJpeg(path.c_str(), pix.get(), quality, 0) != 0;
    if (failed)
        throw std::runtime_error("cannot write " + path.string());
}

void writeTruth(const fs::path& folder, const std::vector<PrintedPage>& pages,
                const std::vector<std::string>& pictures) {
    std::string truth = "page\tnumber\tfirst\tlast\n";
    std::string headwords = "headword\trow\n";
    for (std::size_t i = 0; i < pages.size(); ++i) {
        truth += pictures[i] + "\t" + pages[i].number + "\t" + pages[i].first + "\t" + pages[i].last + "\n";
        for (const std::string& headword : pages[i].headwords)
            headwords += headword + "\t" + std::to_string(i + 1) + "\n";
    }
    for (const auto& [name, text] : {std::pair("truth.tsv", truth), {"headwords.tsv", headwords}})
        if (const Result written = writeFileAtomically(folder / name, text); !written)
            throw std::runtime_error(written.failure().message());
}

void bindScans(const std::vector<fs::path>& pictures, const fs::path& target, int dpi) {
    if (target.extension() == ".pdf")
        bindPdf(pictures, target, dpi);
    else if (target.extension() == ".djvu")
        bindDjvu(pictures, target, dpi);
    else
        bindTiff(pictures, target);
}

} // namespace velmarin
