#include "make_samples/SampleFolder.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <stdexcept>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "files/Descriptor.h"
#include "make_samples/DictionaryWriter.h"
#include "make_samples/Processes.h"
#include "make_samples/Text.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

/// Keeps other runs out as long as it is open. The folder itself is what is locked, so nothing is left behind.
Descriptor lockedFolder(const fs::path& folder) {
    Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened)
        throw std::runtime_error("cannot open " + folder.string());
    if (flock(opened.number(), LOCK_EX | LOCK_NB) != 0)
        throw std::runtime_error("another run is making samples in " + folder.string());
    return opened;
}

void checkSources(const fs::path& dictFolder, const std::vector<Sample>& samples) {
    std::set<std::string> missing;
    for (const Sample& sample : samples)
        if (!fs::exists(dictFolder / (sample.source + ".index")))
            missing.insert("dict-" + sample.source);
    if (missing.empty())
        return;
    std::string message = "no dictionary data in " + dictFolder.string() + "; these packages are missing:";
    for (const std::string& package : missing)
        message += " " + package;
    throw std::runtime_error(message);
}

/// Whether `folder` holds a sample of an earlier run that named its pages p0000.tif and on, and nothing else. A
/// dictionary of the reader's own in that place lacks what the samples' `txt` has: every third headword.
bool isOutdatedSample(const fs::path& folder) {
    static Pattern members(R"(^(FW|ind|txt|Format|Spanish|IJUV|mP?[Ii]mg|mImg/(ImageIndex2?|p\d{4}\.[a-z]{3})|)"
                           R"(mPimg/s\d-\d{4}\.[a-z]{3})$)");
    const auto isTitle = [&](const char* ending) {
        return fs::exists(folder / "mImg" / (std::string("p0000") + ending));
    };
    if (!isTitle(".tif") && !isTitle(".png") && !isTitle(".jpg"))
        return false;
    if (!fs::is_directory(fs::symlink_status(folder)) || !fs::is_directory(fs::symlink_status(folder.parent_path())))
        return false;
    for (const auto& item : fs::recursive_directory_iterator(folder))
        if (item.is_symlink() || !members.finds(item.path().lexically_relative(folder).string()))
            return false;
    std::ifstream ind(folder / "ind");
    std::ifstream txt(folder / "txt");
    std::string key;
    std::string text;
    std::size_t lines = 0;
    for (; std::getline(ind, key) && std::getline(txt, text); ++lines) {
        const std::string word = lines % 3 == 1 ? key.substr(0, key.find("__DLM__")) + " " : "";
        if (!text.starts_with(word + "<@_p"))
            return false;
    }
    return lines > 0 && !ind && !std::getline(txt, text);
}

/// Which of `samples` are to be made: all where `folder` is missing or empty, otherwise those of an earlier run.
std::vector<Sample> dueSamples(const fs::path& folder, const std::vector<Sample>& samples) {
    if (!fs::exists(folder) || (fs::is_directory(folder) && fs::is_empty(folder)))
        return samples;
    std::vector<Sample> due;
    for (const Sample& sample : samples) {
        try {
            if (isOutdatedSample(folder / sample.group / sample.name))
                due.push_back(sample);
        } catch (const fs::filesystem_error&) {
            continue; // What cannot be read is left as it is.
        }
    }
    return due;
}

/// Swaps two folders.
void exchange(const fs::path& made, const fs::path& old) {
    if (renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, old.c_str(), RENAME_EXCHANGE) == 0)
        return;
    // Not every file system can exchange two folders at once.
    const fs::path aside = made.string() + ".old";
    fs::rename(old, aside);
    fs::rename(made, old);
    fs::rename(aside, made);
}

} // namespace

bool makeSampleFolder(const fs::path& target, const fs::path& dictFolder, const std::vector<Sample>& samples,
                      std::size_t atOnce, const std::function<void(const std::string&)>& tell) {
    fs::path whole = fs::absolute(target).lexically_normal();
    if (!whole.has_filename())
        whole = whole.parent_path();
    const std::vector<Sample> due = dueSamples(whole, samples);
    if (due.empty())
        return false;
    const bool renews = fs::exists(whole) && !fs::is_empty(whole);
    checkSources(dictFolder, due);
    fs::create_directories(whole.parent_path());
    const Descriptor lock = lockedFolder(whole.parent_path());
    const fs::path stage = whole.parent_path() / ("." + whole.filename().string() + ".unfinished");
    fs::remove_all(stage);
    const auto nameOf = [&](std::size_t i) { return fs::path(due[i].group) / due[i].name; };
    inProcesses(
        due.size(), atOnce, [&](std::size_t i) { makeBook(due[i].make(dictFolder), stage / nameOf(i), atOnce); },
        [&](std::size_t i) { tell(nameOf(i).string()); });
    std::map<std::string, std::string> preferences;
    for (const Sample& sample : due) {
        std::string& group = preferences[sample.group];
        if (group.empty())
            group = sample.group + "\t0\t\n";
        group += sample.name + "\t2\n"; // as wide as the window to begin with
    }
    if (!renews)
        for (const auto& [group, text] : preferences)
            writeFile(stage / group / "DictionaryPreferences.txt", text);
    syncfs(lock.number());
    if (!renews) {
        fs::rename(stage, whole);
        return true;
    }
    for (const Sample& sample : due)
        exchange(stage / sample.group / sample.name, whole / sample.group / sample.name);
    fs::remove_all(stage);
    return true;
}

} // namespace velmarin
