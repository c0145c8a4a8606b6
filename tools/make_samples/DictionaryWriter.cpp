#include "make_samples/DictionaryWriter.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace velmarin {

namespace {

/// The last character that a text may hold.
constexpr const char* closingKey = "\U0010FFFD";

std::string indText(const std::vector<IndexLine>& lines) {
    std::string text;
    for (const IndexLine& line : lines) {
        text += line.key;
        if (!line.note.empty())
            text += "__DLM__" + line.note;
        text += '\n';
    }
    return text;
}

/// Every third line says its headword too, and every line with extra pages what they are, as books that were indexed by
/// hand do.
std::string txtText(const std::vector<IndexLine>& lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const IndexLine& line = lines[i];
        if (i % 3 == 1)
            text += line.key + " ";
        text += "<@_" + line.page + "_>";
        if (!line.extraPages.empty())
            text += " in full:";
        for (const std::string& extra : line.extraPages)
            text += " <^_" + extra + "_>";
        text += '\n';
    }
    return text;
}

std::string listText(const std::vector<ListedPage>& pages) {
    std::string text = std::to_string(static_cast<long>(pages.size()) - 1) + "\n";
    for (const ListedPage& page : pages)
        text += page.name + "\t" + page.caption + "\n";
    return text;
}

} // namespace

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

std::vector<IndexLine> indexLines(std::vector<IndexLine> lines, const IndexOrder& order) {
    struct Keyed {
        std::string word;
        IndexLine line;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(lines.size());
    for (IndexLine& line : lines)
        keyed.push_back({indexSearchWord(line.key, order), std::move(line)});
    std::stable_sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) { return a.word < b.word; });
    std::vector<IndexLine> sorted;
    for (std::size_t from = 0; from < keyed.size();) {
        const std::size_t firstOfWord = sorted.size();
        std::vector<std::string> extraPages;
        std::size_t at = from;
        for (; at < keyed.size() && keyed[at].word == keyed[from].word; ++at) {
            IndexLine& line = keyed[at].line;
            std::move(line.extraPages.begin(), line.extraPages.end(), std::back_inserter(extraPages));
            if (sorted.size() == firstOfWord || sorted.back().page == line.page)
                sorted.push_back(std::move(line));
        }
        for (std::size_t i = firstOfWord; i < sorted.size(); ++i)
            sorted[i].extraPages = extraPages;
        from = at;
    }
    if (!sorted.empty())
        sorted.push_back({closingKey, "end", sorted.back().page, {}});
    return sorted;
}

void writeDictionary(const std::filesystem::path& folder, const std::vector<IndexLine>& lines,
                     const std::vector<ListedPage>& pages, const DictionaryShape& shape) {
    writeFile(folder / "FW", "");
    writeFile(folder / "ind", indText(lines));
    writeFile(folder / "txt", txtText(lines));
    if (shape.order.SpanishMode)
        writeFile(folder / "Spanish", "");
    if (shape.order.IJUVMode)
        writeFile(folder / "IJUV", "");
    if (!shape.order.FormatFom.empty() || shape.independent)
        writeFile(folder / "Format", shape.order.FormatFom + "\n" + (shape.independent ? "true\n" : ""));
    writeFile(folder / "mImg" / "ImageIndex2", listText(pages));
}

} // namespace velmarin
