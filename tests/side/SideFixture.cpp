#include "SideFixture.h"

#include "DictdFixture.h"
#include "side/UserDictionary.h"

#include <filesystem>
#include <stdexcept>

namespace velmarin::test {

namespace fs = std::filesystem;

SideFixture::SideFixture() {
    main.group = FolderItem(groupFolder.path());
    DictdFixture().entry("amor", "love").writeTo(dictd, "lat");
}

SideServices SideFixture::services() {
    return {.host = host,
            .busy = busy,
            .preferencesFolder = FolderItem(preferences.path()),
            .desktop = FolderItem(desktop.path()),
            .dictionaries = DictionaryService(FolderItem(dictd.path())),
            .wordsFolder = words.path().string() + "/",
            .clock = [this] { return now; }};
}

void SideFixture::installWords(const std::string& script) const {
    fs::permissions(words.write("words", "#!/bin/sh\n" + script), fs::perms::owner_all);
}

void SideFixture::addUserDictionary(const std::string& name, const std::string& source) const {
    const fs::path folder = groupFolder.path() / "UserDictionaries" / name;
    fs::create_directories(folder);
    SilentProgress progress;
    const TempFolder data;
    const BuildResult result = buildUserDictionary(FolderItem(data.write("source", source)), FolderItem(folder),
                                                   progress, ExistingDictionary::Refuse);
    if (!result.ok)
        throw std::runtime_error(result.reason);
}

void SideFixture::runPosted() {
    while (!posted.empty()) {
        const BusyState::Action action = std::move(posted.front());
        posted.erase(posted.begin());
        action();
    }
}

} // namespace velmarin::test
