#include "store/GroupPreferences.h"

#include "files/AtomicFile.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "store/BooleanText.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "text/StringFields.h"

#include <cerrno>
#include <cstdint>

namespace velmarin {

namespace {

constexpr std::uint64_t kLargestPreferences = std::uint64_t{1} << 24;

} // namespace

GroupPreferences parseGroupPreferences(std::string_view text) {
    GroupPreferences preferences;
    LineReader lines(text);
    const std::string_view first = lines.ReadLine();
    preferences.groupName = NthField(first, "\t", 1);
    preferences.separately = NthField(first, "\t", 2) == "1";
    while (!lines.EOF_()) {
        const std::string_view line = lines.ReadLine();
        preferences.dictionaries.push_back(
            {.name = std::string(NthField(line, "\t", 1)), .ImageMode = toInt32(CDbl(NthField(line, "\t", 2)))});
    }
    return preferences;
}

std::string formatGroupPreferences(const GroupPreferences& preferences) {
    std::string text = preferences.groupName + "\t" + mDataMod_ConvertBooleanTo1or0(preferences.separately) + "\t\n";
    for (const GroupPreferences::Entry& entry : preferences.dictionaries)
        text += entry.name + "\t" + Str(entry.ImageMode) + "\n";
    return text;
}

GroupPreferences readGroupPreferences(const FolderItem& file) {
    const auto text = readWholeFile(file, kLargestPreferences);
    if (!text)
        throw NilObjectException("The preferences \"" + file.path().native() +
                                 "\" could not be read: " + errorInWords(errno));
    return parseGroupPreferences(*text);
}

Result writeGroupPreferences(const FolderItem& group, const GroupPreferences& preferences,
                             const std::vector<std::string>& pNewDicPref) {
    if (group.isNil() || !group.Exists())
        return {};
    std::string text;
    for (const std::string& line : pNewDicPref)
        text += line + "\n";
    if (pNewDicPref.empty())
        text = formatGroupPreferences(preferences);
    const FolderItem file = group.Child("DictionaryPreferences.txt");
    const Result result = writeFileAtomically(file.path(), text);
    const bool nothingIsLost = !result && readWholeFile(file, kLargestPreferences) == text;
    return nothingIsLost ? Result{} : result;
}

} // namespace velmarin
