#include "make_samples/SampleFolder.h"

#include <map>
#include <set>
#include <stdexcept>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmarin {

namespace {

namespace fs = std::filesystem;

/// Held while this run is at work in a folder. The folder itself is what is locked, so nothing is left behind.
class FolderLock {
  public:
    explicit FolderLock(const fs::path& folder)
        : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (descriptor_ < 0)
            throw std::runtime_error("cannot open " + folder.string());
        if (flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
            close(descriptor_);
            throw std::runtime_error("another run is making samples in " + folder.string());
        }
    }
    ~FolderLock() { close(descriptor_); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Everything written to the file system so far is on the disk afterwards.
    void flush() const { syncfs(descriptor_); }

  private:
    int descriptor_;
};

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

/// Pages as wide as the window to begin with, in the order of the samples.
void writePreferences(const fs::path& group, const std::string& name, const std::vector<std::string>& dictionaries) {
    std::string text = name + "\t0\t\n";
    for (const std::string& dictionary : dictionaries)
        text += dictionary + "\t2\n";
    writeFile(group / "DictionaryPreferences.txt", text);
}

} // namespace

bool makeSampleFolder(const fs::path& target, const fs::path& dictFolder, const std::vector<Sample>& samples,
                      unsigned threads, const std::function<void(const std::string&)>& tell) {
    fs::path whole = fs::absolute(target).lexically_normal();
    if (!whole.has_filename())
        whole = whole.parent_path();
    if (fs::exists(whole) && (!fs::is_directory(whole) || !fs::is_empty(whole)))
        return false;
    checkSources(dictFolder, samples);
    fs::create_directories(whole.parent_path());
    const FolderLock lock(whole.parent_path());
    const fs::path stage = whole.parent_path() / ("." + whole.filename().string() + ".unfinished");
    fs::remove_all(stage);
    std::map<std::string, std::vector<std::string>> groups;
    for (const Sample& sample : samples) {
        const BookResult made = makeBook(sample.make(dictFolder), stage / sample.group / sample.name, threads);
        groups[sample.group].push_back(sample.name);
        tell(sample.group + " / " + sample.name + ": " + std::to_string(made.pages) + " pages, " +
             std::to_string(made.entries) + " entries" +
             (made.extraPages > 0 ? ", " + std::to_string(made.extraPages) + " extra pages" : ""));
    }
    for (const auto& [group, dictionaries] : groups)
        writePreferences(stage / group, group, dictionaries);
    lock.flush();
    fs::rename(stage, whole);
    return true;
}

} // namespace velmarin
