#include "side/UserDictionarySource.h"

#include "side/UserDictionaryDisplay.h"
#include "side/UserDictionaryList.h"

namespace velmarin {

void UserDictionarySource::mSearchUserDictionary(const std::string& word) {
    const FolderItem* chosen = context_.userDictionaries.chosen();
    if (chosen == nullptr)
        return;
    constexpr int kWholeWord = 2;
    const FolderItem dictionary = *chosen;
    const auto yield = [this] { context_.lookUp.yield(); };
    if (module_.mSearch(dictionary, word, kWholeWord, false, yield))
        mDisplayResult(module_, dictionary.Name(), false, {}, &context_.text, yield);
}

} // namespace velmarin
