#include "side/SubwindowFile.h"

#include "files/AtomicFile.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "store/BooleanText.h"
#include "text/LetterCase.h"
#include "text/NumberText.h"

namespace velmarin {

namespace {

constexpr std::string_view kFileName = "Subwindow";
constexpr std::string_view kDicApp = "DicApp";
constexpr std::string_view kFind = "Find";
/// Ten short lines; whatever comes behind is not ours.
constexpr std::size_t kMostRead = std::size_t{1} << 16;

} // namespace

SubwindowSettings parseSubwindow(std::string_view text) {
    LineReader lines(text);
    const auto number = [&] { return toInt32(CDbl(lines.ReadLine())); };
    const auto boolean = [&] { return equalStrings(lines.ReadLine(), mDataMod_ConvertBooleanToString(true)); };
    SubwindowSettings settings;
    settings.width = number();
    settings.fontRow = number();
    settings.sizeRow = number();
    settings.DicAppCB = boolean();
    settings.LatinCB = boolean();
    settings.target = equalStrings(lines.ReadLine(), kDicApp) ? FindTarget::DicApp : FindTarget::Find;
    settings.SyncronizeCB = boolean();
    settings.DontClearCB = boolean();
    settings.UserDicCB = boolean();
    if (const std::string_view row = lines.ReadLine(); !row.empty())
        settings.userDicRow = toInt32(CDbl(row));
    return settings;
}

std::string subwindowText(const SubwindowSettings& settings) {
    std::string text;
    const auto line = [&](std::string_view value) { text.append(value).append("\n"); };
    const auto boolean = [&](bool value) { line(mDataMod_ConvertBooleanToString(value)); };
    line(Str(settings.width));
    line(Str(settings.fontRow));
    line(Str(settings.sizeRow));
    boolean(settings.DicAppCB);
    boolean(settings.LatinCB);
    line(settings.target == FindTarget::DicApp ? kDicApp : kFind);
    boolean(settings.SyncronizeCB);
    boolean(settings.DontClearCB);
    boolean(settings.UserDicCB);
    line(Str(settings.userDicRow.value_or(-1)));
    return text;
}

FolderItem subwindowFile(const FolderItem& groupFolder) {
    return groupFolder.Child(kFileName);
}

std::optional<SubwindowSettings> readSubwindow(const FolderItem& groupFolder) {
    const auto file = ReadOnlyFile::open(subwindowFile(groupFolder));
    if (!file)
        return std::nullopt;
    return parseSubwindow(readFileStart(*file, kMostRead));
}

Result writeSubwindow(const FolderItem& groupFolder, const SubwindowSettings& settings) {
    return writeFileAtomically(subwindowFile(groupFolder).path(), subwindowText(settings));
}

} // namespace velmarin
