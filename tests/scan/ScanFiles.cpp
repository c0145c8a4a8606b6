#include "ScanFiles.h"

#include "support/RunProgram.h"
#include "support/TempFolder.h"
#include "view/Encoders.h"
#include "view/PixTools.h"

#include <random>

#include <tiffio.h>

namespace velmarin::test {

namespace fs = std::filesystem;

Picture printedPage(int width, int height, int depth, unsigned seed, int margin) {
    std::mt19937 random(seed);
    Pix* pix = pixCreate(width, height, depth);
    if (depth == 8)
        pixSetAllGray(pix, 230);
    for (int y = margin; y + 24 < height - margin; y += 40) {
        for (int x = margin; x + 30 < width - margin; x += 8 + static_cast<int>(random() % 30)) {
            Box* box = boxCreate(x, y + static_cast<int>(random() % 6), 5 + static_cast<int>(random() % 12), 18);
            depth == 8 ? pixSetInRectArbitrary(pix, box, 30 + random() % 40) : pixSetInRect(pix, box);
            x += box->w;
            boxDestroy(&box);
        }
    }
    return Picture::adopt(pix);
}

namespace {

std::string stream(const std::string& dictionary, const std::string& data) {
    return "<< " + dictionary + " /Length " + std::to_string(data.size()) + " >>\nstream\n" + data + "\nendstream";
}

/// The first strip of a TIFF in memory, as it is stored.
std::string rawStrip(const std::string& bytes) {
    const TempFolder folder;
    TIFF* tiff = TIFFOpen(folder.write("p.tif", bytes).c_str(), "r");
    std::string data(static_cast<std::size_t>(TIFFRawStripSize(tiff, 0)), '\0');
    TIFFReadRawStrip(tiff, 0, data.data(), static_cast<tmsize_t>(data.size()));
    TIFFClose(tiff);
    return data;
}

/// The rows of a picture of 1 or 8 bits, 1 for white.
std::string samples(const Picture& picture) {
    std::string data;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); x += picture.depth() == 8 ? 1 : 8) {
            int byte = picture.pixel(x, y).red;
            for (int bit = 0; picture.depth() == 1 && bit < 8; ++bit)
                byte = (bit == 0 ? 0 : byte * 2) + (picture.pixel(x + bit, y).red != 0 ? 1 : 0);
            data += static_cast<char>(byte);
        }
    return data;
}

} // namespace

std::string pdfImage(const Picture& picture, const std::string& coding, const std::string& more) {
    std::string dictionary = "/Type /XObject /Subtype /Image /Width " + std::to_string(picture.Width()) + " /Height " +
                             std::to_string(picture.Height()) + " /BitsPerComponent " +
                             std::to_string(picture.depth()) + " " + more;
    if (more.find("/ImageMask") == std::string::npos)
        dictionary += " /ColorSpace /DeviceGray";
    if (coding == "CCITTFaxDecode")
        return stream(dictionary + " /Filter /CCITTFaxDecode /DecodeParms << /K -1 /Columns " +
                          std::to_string(picture.Width()) + " >>",
                      rawStrip(*encodePicture(picture, "tif")));
    if (coding == "DCTDecode")
        return stream(dictionary + " /Filter /DCTDecode", *encodePicture(picture, "jpg"));
    return stream(dictionary, samples(picture));
}

std::string drawImage(int number, const std::string& matrix) {
    return "q " + matrix + " cm /I" + std::to_string(number) + " Do Q\n";
}

std::string drawWords(const std::vector<std::pair<int, std::string>>& atX) {
    std::string text;
    for (const auto& [x, word] : atX)
        text += "BT /F 20 Tf " + std::to_string(x) + " 340 Td (" + word + ") Tj ET\n";
    return text;
}

std::string pdfOf(const std::vector<PdfPageText>& pages, const std::vector<std::string>& objects,
                  const std::string& trailer) {
    std::vector<std::string> all{"<< /Type /Catalog /Pages 2 0 R >>", "",
                                 "<< /Type /Font /Subtype /Type1 /BaseFont /Times-Roman >>"};
    all.insert(all.end(), objects.begin(), objects.end());
    const auto add = [&](const std::string& object) {
        all.push_back(object);
        return std::to_string(all.size()) + " 0 R ";
    };
    std::string kids;
    for (const PdfPageText& page : pages) {
        std::string images;
        for (std::size_t i = 0; i < page.images.size(); ++i)
            images += "/I" + std::to_string(i) + " " + add(page.images[i]);
        const std::string content = add(stream("", page.content));
        kids += add("<< /Type /Page /Parent 2 0 R /MediaBox [" + page.box + "] " + page.more + " /Contents " + content +
                    "/Resources << /Font << /F 3 0 R >> /XObject << " + images + " /X 4 0 R >> >> >>");
    }
    all[1] = "<< /Type /Pages /Count " + std::to_string(pages.size()) + " /Kids [" + kids + "] >>";
    std::string pdf = "%PDF-1.5\n", table;
    for (std::size_t i = 0; i < all.size(); ++i) {
        char row[32];
        std::snprintf(row, sizeof row, "%010zu 00000 n \n", pdf.size());
        table += row;
        pdf += std::to_string(i + 1) + " 0 obj\n" + all[i] + "\nendobj\n";
    }
    const std::string size = std::to_string(all.size() + 1);
    return pdf + "xref\n0 " + size + "\n0000000000 65535 f \n" + table + "trailer << /Size " + size + " /Root 1 0 R " +
           trailer + " >>\nstartxref\n" + std::to_string(pdf.size()) + "\n%%EOF\n";
}

std::string tiffOf(const std::vector<Picture>& pages, int compression) {
    const TempFolder folder;
    TIFF* tiff = TIFFOpen(folder.at("p.tif").c_str(), "w");
    for (const Picture& page : pages) {
        TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
        TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, page.Width());
        TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, page.Height());
        TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, page.depth());
        TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
        TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 64);
        std::string rows = samples(page);
        const std::size_t rowSize = rows.size() / static_cast<std::size_t>(page.Height());
        for (int y = 0; y < page.Height(); ++y)
            TIFFWriteScanline(tiff, rows.data() + static_cast<std::size_t>(y) * rowSize, static_cast<std::uint32_t>(y));
        TIFFWriteDirectory(tiff);
    }
    TIFFClose(tiff);
    return folder.read("p.tif");
}

fs::path djvuOf(const std::vector<Picture>& pages, const fs::path& folder) {
    std::vector<std::string> join{"djvm", "-c", (folder / "book.djvu").string()};
    for (const Picture& page : pages) {
        const std::string name = (folder / ("page" + std::to_string(join.size()))).string();
        Pix* ink = page.pix();
        pixWrite((name + ".pbm").c_str(), ink, IFF_PNM);
        runProgram({"cjb2", "-dpi", "300", name + ".pbm", name + ".djvu"});
        join.push_back(name + ".djvu");
    }
    runProgram(join);
    return folder / "book.djvu";
}

} // namespace velmarin::test
