#include "store/TextFileLines.h"

#include "files/LineScanner.h"
#include "files/ReadOnlyFile.h"
#include "text/Message.h"

#include <limits>
#include <optional>
#include <string_view>

namespace velmarin {

void mFiMod_GetTextFiLinesByLineNums(const FolderItem& file, const std::vector<int>& lineNumbers,
                                     std::vector<std::string>& lines) {
    if (file.isNil())
        return MsgBox("mFiMod_GetTextFiLinesByLineNums_StringArray, TextFileFi is NilObject.");
    if (!file.Exists())
        return MsgBox("mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist.");
    if (lineNumbers.empty())
        return MsgBox("mFiMod_GetTextFiLinesByLineNums_String, LineNum does not exist.");
    const auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return MsgBox("NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray");

    LineScanner scanner(*opened);
    std::string_view line;
    auto wanted = lineNumbers.begin();
    for (int number = 1; number <= lineNumbers.back() && wanted != lineNumbers.end() && scanner.next(line); ++number) {
        if (number == *wanted) {
            lines.emplace_back(line);
            ++wanted;
        }
    }
}

int mFiMod_GetLineCountFromTextFi(const FolderItem& file) {
    const auto opened = file.isNil() ? std::nullopt : ReadOnlyFile::open(file);
    if (!opened)
        return 0;
    LineScanner scanner(*opened);
    std::string_view line;
    int count = 0;
    while (count < std::numeric_limits<int>::max() && scanner.next(line))
        ++count;
    return count;
}

} // namespace velmarin
