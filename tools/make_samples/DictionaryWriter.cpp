#include "make_samples/DictionaryWriter.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace velmarin {

namespace {

/// The last character that a text may hold.
constexpr const char* closingKey = "\U0010FFFD";

} // namespace

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

std::vector<IndexLine> indexLines(std::vector<IndexLine> lines, const IndexOrder& order) {
    std::vector<std::pair<std::string, IndexLine>> keyed;
    keyed.reserve(lines.size());
    for (IndexLine& line : lines)
        keyed.emplace_back(indexSearchWord(line.key, order), std::move(line));
    std::ranges::stable_sort(keyed, {}, &std::pair<std::string, IndexLine>::first);
    std::vector<IndexLine> sorted;
    for (std::size_t at = 0; at < keyed.size();) {
        const std::size_t firstOfWord = sorted.size();
        const std::string word = keyed[at].first;
        std::vector<std::string> extraPages;
        for (; at < keyed.size() && keyed[at].first == word; ++at) {
            IndexLine& line = keyed[at].second;
            std::ranges::move(line.extraPages, std::back_inserter(extraPages));
            if (sorted.size() == firstOfWord || sorted.back().page == line.page)
                sorted.push_back(std::move(line));
        }
        for (std::size_t i = firstOfWord; i < sorted.size(); ++i)
            sorted[i].extraPages = extraPages;
    }
    if (!sorted.empty())
        sorted.push_back({closingKey, "end", sorted.back().page, {}});
    return sorted;
}

void writeDictionary(const std::filesystem::path& folder, const std::vector<IndexLine>& lines,
                     const std::vector<ListedPage>& pages, const Book& book) {
    std::string ind;
    std::string txt;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const IndexLine& line = lines[i];
        ind += line.key + (line.note.empty() ? "" : "__DLM__" + line.note) + "\n";
        // Every third line says its headword too, and every line with extra pages what they are, as books that were
        // indexed by hand do.
        txt += (i % 3 == 1 ? line.key + " " : "") + "<@_" + line.page + "_>" +
               (line.extraPages.empty() ? "" : " in full:");
        for (const std::string& extra : line.extraPages)
            txt += " <^_" + extra + "_>";
        txt += '\n';
    }
    std::string list = std::to_string(static_cast<long>(pages.size()) - 1) + "\n";
    for (const ListedPage& page : pages)
        list += page.name + "\t" + page.caption + "\n";
    writeFile(folder / "FW", "");
    writeFile(folder / "ind", ind);
    writeFile(folder / "txt", txt);
    writeFile(folder / "mImg" / "ImageIndex2", list);
    if (book.order.SpanishMode)
        writeFile(folder / "Spanish", "");
    if (book.order.IJUVMode)
        writeFile(folder / "IJUV", "");
    if (!book.order.FormatFom.empty() || book.independent)
        writeFile(folder / "Format", book.order.FormatFom + "\n" + (book.independent ? "true\n" : ""));
}

} // namespace velmarin
