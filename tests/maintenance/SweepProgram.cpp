// What the sweep kills and starves: the commands of the core, told as velmarin-cli is.

#include "maintenance/Export.h"
#include "maintenance/Install.h"
#include "maintenance/Update.h"

#include <iostream>
#include <string>
#include <vector>

using namespace velmarin;

namespace {

Record run(const std::string& command, const std::vector<FolderItem>& items, bool replace) {
    if (command == "install")
        return installDictionary(items.at(0), items.at(1));
    if (command == "update")
        return updateDictionary(items.at(0), installedCopies(items.at(1), items.at(0).Name()), items.at(2));
    Record record;
    exportDictionary(
        items.at(0), items.at(1), [replace](const std::string&) { return replace; }, {}, record);
    return record;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool replace = words.at(1) == "--replace";
    std::vector<FolderItem> items;
    for (std::size_t i = replace ? 2 : 1; i < words.size(); ++i)
        items.push_back(FolderItem(words[i]));
    const Record record = run(words.front(), items, replace);
    std::cerr << failureMessage(record);
    return record.failures.empty() ? 0 : 1;
}
