#include "store/DictionaryItem.h"

#include "files/FolderListing.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "store/IndexWords.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"

#include <cerrno>

namespace velmarin {

namespace {

/// Far above any real index, and low enough that a hostile one takes no memory worth speaking of.
constexpr std::uint64_t kLargestIndex = std::uint64_t{1} << 28;

void readFormat(const FolderItem& file, DictionaryItem& item) {
    const auto opened = ReadOnlyFile::open(file);
    const auto text = opened ? readFileStart(*opened, kFormatBytes) : std::nullopt;
    if (!text)
        throw NilObjectException("The number format \"" + file.path().native() +
                                 "\" could not be read: " + errorInWords(errno));
    LineReader lines(*text);
    item.order.FormatFom = lines.ReadLine();
    item.Independent = equalStrings(lines.ReadLine(), "true");
}

void readIndex(const FolderItem& file, DictionaryItem& item) {
    const auto text = readWholeFile(file, kLargestIndex);
    if (!text)
        throw NilObjectException("The index \"" + file.path().native() +
                                 "\" could not be read: " + errorInWords(errno));
    item.IND = HeadwordIndex(readIndexWords(*text, item.order));
}

} // namespace

bool MakeDictionaryItem(const FolderItem& folder, DictionaryItem& item, int number) {
    const FolderListing members(folder);
    item.loaded = false;
    item.name = folder.Name();
    item.DictionaryFolderitem = folder;
    item.TabNum = number;
    item.ImageFolder = members.Child("mImg");
    item.PageImageFi = members.Child("mPimg");
    item.TxtFi = members.Child("txt");
    item.txtLines = IndexedTextFile(item.TxtFi);
    item.order.SpanishMode = members.has("Spanish");
    item.order.IJUVMode = members.has("IJUV");
    if (const FolderItem format = members.Child("Format"); format.Exists())
        readFormat(format, item);
    const FolderItem ind = members.Child("ind");
    if (!ind.Exists() || !item.ImageFolder.Exists() || !item.TxtFi.Exists())
        return false;
    readIndex(ind, item);
    item.loaded = true;
    return true;
}

} // namespace velmarin
