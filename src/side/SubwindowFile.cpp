#include "side/SubwindowFile.h"

#include "files/AtomicFile.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "side/SourceTable.h"
#include "store/BooleanText.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace velmarin {

namespace {

constexpr std::string_view kFileName = "Subwindow";
constexpr std::string_view kDicApp = "DicApp";
constexpr std::string_view kFind = "Find";
/// A few short lines; anything after that was not written by this program.
constexpr std::size_t kMostRead = std::size_t{1} << 16;

/// The lines of the file, counted from 1; those of the sources are in their table.
enum : std::size_t {
    kWidth = 1,
    kFontRow = 2,
    kSizeRow = 3,
    kTarget = 6,
    kSyncronizeCB = 7,
    kDontClearCB = 8,
    kUserDicRow = 10
};

std::size_t lineCount() {
    std::size_t count = kUserDicRow;
    for (const SourceRow& source : sourceTable())
        count = std::max(count, source.settingsLine);
    return count;
}

} // namespace

SubwindowSettings::SubwindowSettings() {
    for (const SourceRow& source : sourceTable())
        sourcesOn.push_back(source.isOnByDefault);
}

SubwindowSettings parseSubwindow(std::string_view text) {
    std::vector<std::string_view> lines(lineCount() + 1);
    LineReader reader(text);
    std::generate(lines.begin() + kWidth, lines.end(), [&] { return reader.ReadLine(); });
    const auto number = [&](std::size_t line) { return toInt32(CDbl(lines[line])); };
    const auto isOn = [&](std::size_t line) {
        return equalStrings(lines[line], mDataMod_ConvertBooleanToString(true));
    };
    SubwindowSettings settings;
    settings.width = number(kWidth);
    settings.fontRow = number(kFontRow);
    settings.sizeRow = number(kSizeRow);
    for (std::size_t row = 0; row < settings.sourcesOn.size(); ++row)
        settings.sourcesOn[row] = isOn(sourceTable()[row].settingsLine);
    settings.target = equalStrings(lines[kTarget], kDicApp) ? FindTarget::LookUp : FindTarget::Find;
    settings.SyncronizeCB = isOn(kSyncronizeCB);
    settings.DontClearCB = isOn(kDontClearCB);
    if (!lines[kUserDicRow].empty())
        settings.userDicRow = number(kUserDicRow);
    return settings;
}

std::string subwindowText(const SubwindowSettings& settings) {
    std::vector<std::string> lines(lineCount() + 1);
    lines[kWidth] = Str(settings.width);
    lines[kFontRow] = Str(settings.fontRow);
    lines[kSizeRow] = Str(settings.sizeRow);
    for (std::size_t row = 0; row < settings.sourcesOn.size(); ++row)
        lines[sourceTable()[row].settingsLine] = mDataMod_ConvertBooleanToString(settings.sourcesOn[row]);
    lines[kTarget] = settings.target == FindTarget::LookUp ? kDicApp : kFind;
    lines[kSyncronizeCB] = mDataMod_ConvertBooleanToString(settings.SyncronizeCB);
    lines[kDontClearCB] = mDataMod_ConvertBooleanToString(settings.DontClearCB);
    lines[kUserDicRow] = Str(settings.userDicRow.value_or(-1));
    std::string text;
    for (std::size_t line = kWidth; line < lines.size(); ++line)
        text += lines[line] + "\n";
    return text;
}

FolderItem subwindowFile(const FolderItem& groupFolder) {
    return groupFolder.Child(kFileName);
}

std::optional<SubwindowSettings> readSubwindow(const FolderItem& groupFolder) {
    const FolderItem item = subwindowFile(groupFolder);
    if (!item.Exists())
        return std::nullopt;
    const auto file = ReadOnlyFile::open(item);
    const auto text = file ? readFileStart(*file, kMostRead) : std::nullopt;
    if (!text)
        throw NilObjectException("\"" + item.path().native() + "\" could not be read: " + errorInWords(errno));
    return parseSubwindow(*text);
}

Result writeSubwindow(const FolderItem& groupFolder, const SubwindowSettings& settings) {
    return writeFileAtomically(subwindowFile(groupFolder).path(), subwindowText(settings));
}

} // namespace velmarin
