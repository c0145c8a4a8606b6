#include "side/UserDictionary.h"

#include "files/AtomicFile.h"
#include "files/Descriptor.h"
#include "files/TemporaryName.h"
#include "files/TextFile.h"
#include "side/DictionaryModule.h"
#include "text/NilObjectException.h"
#include "text/StringRules.h"

#include <array>
#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kSuperscripts{{
    {"__NUM__1", "¹"},
    {"__NUM__2", "²"},
    {"__NUM__3", "³"},
    {"__NUM__4", "⁴"},
    {"__NUM__5", "⁵"},
    {"__NUM__6", "⁶"},
    {"__NUM__7", "⁷"},
    {"__NUM__8", "⁸"},
    {"__NUM__9", "⁹"},
    {"__NUM__", "-"},
}};

/// A hidden folder inside another one, in which files are made whole before they are put in place. Locked, so that
/// nobody takes it for the leftover of a run that was killed.
class StagingFolder {
  public:
    explicit StagingFolder(const fs::path& parent) : path_(parent / newTemporaryName()) {
        if (::mkdir(path_.c_str(), 0777) != 0) {
            error_ = errno;
            path_.clear();
            return;
        }
        lock_ = Descriptor(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (lock_)
            ::flock(lock_.number(), LOCK_EX | LOCK_NB);
    }
    ~StagingFolder() {
        std::error_code ignored;
        if (!path_.empty())
            fs::remove_all(path_, ignored);
    }
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    const fs::path& path() const { return path_; }
    int error() const { return error_; }

  private:
    fs::path path_;
    Descriptor lock_;
    int error_ = 0;
};

/// Renames that are taken back in reverse order unless all of them went well.
class Renames {
  public:
    Renames() = default;
    Renames(const Renames&) = delete;
    Renames& operator=(const Renames&) = delete;
    ~Renames() {
        std::error_code ignored;
        for (auto it = done_.rbegin(); it != done_.rend(); ++it)
            fs::rename(it->second, it->first, ignored);
    }
    bool rename(const fs::path& from, const fs::path& to) {
        if (::rename(from.c_str(), to.c_str()) != 0)
            return false;
        done_.emplace_back(from, to);
        return true;
    }
    void keep() { done_.clear(); }

  private:
    std::vector<std::pair<fs::path, fs::path>> done_;
};

std::string quoted(const fs::path& path) {
    return "\"" + path.native() + "\"";
}

BuildResult failure(std::string reason) {
    return {.ok = false, .reason = std::move(reason)};
}

/// Why the files in `folder` may not be replaced; nothing where they may.
std::optional<std::string> obstacle(const FolderItem& source, const FolderItem& folder) {
    for (const std::string_view name : {kTextFileName, kIndexFileName}) {
        const FolderItem member(folder.path() / name);
        std::error_code error;
        if (member.Directory())
            return quoted(member.path()) + " is a folder.";
        if (member.Exists() && fs::equivalent(member.path(), source.path(), error))
            return quoted(member.path()) + " is the data file itself. Choose another folder for the dictionary.";
    }
    return std::nullopt;
}

/// The lines of `bytes` with their ends, the superscripts set.
std::string dictionaryText(std::string_view bytes, BuildProgress& progress, BuildResult& result) {
    std::string text;
    text.reserve(bytes.size());
    std::size_t copiedTo = 0;
    LineReader lines(bytes);
    while (!lines.EOF_()) {
        const std::string_view line = lines.ReadLine();
        ++result.lines;
        result.linesNotUtf8 += isValidUtf8(line) ? 0 : 1;
        const auto begin = static_cast<std::size_t>(line.data() - bytes.data());
        text += bytes.substr(copiedTo, begin - copiedTo);
        text += line.find("__") == std::string_view::npos ? std::string(line) : withSuperscripts(line);
        copiedTo = begin + line.size();
        progress.yield();
    }
    text += bytes.substr(copiedTo);
    return text;
}

BuildResult putInPlace(const fs::path& staging, const fs::path& folder) {
    Renames renames;
    // The index goes first and comes last: whenever this is cut short, no index stands beside a text that it is not of.
    for (const std::string_view name : {kIndexFileName, kTextFileName})
        if (FolderItem(folder / name).occupied() &&
            !renames.rename(folder / name, staging / ("Old" + std::string(name))))
            return failure(quoted(folder / name) + " could not be replaced: " + errorInWords(errno));
    for (const std::string_view name : {kTextFileName, kIndexFileName})
        if (!renames.rename(staging / name, folder / name))
            return failure(quoted(folder / name) + " could not be written: " + errorInWords(errno));
    renames.keep();
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened)
        ::fsync(opened.number());
    return {};
}

} // namespace

std::string withSuperscripts(std::string_view line) {
    std::string result(line);
    for (const auto& [marker, replacement] : kSuperscripts)
        result = ReplaceAll(result, marker, replacement);
    return result;
}

BuildResult buildUserDictionary(const FolderItem& source, const FolderItem& folder, BuildProgress& progress) {
    const auto file = ReadOnlyFile::open(source);
    if (!file)
        return failure(quoted(source.path()) + " could not be read.");
    const FileStamp stamp = file->stamp();
    if (const auto why = obstacle(source, folder))
        return failure(*why);
    clearLeftoverTemporaries(folder.path());
    const StagingFolder staging(folder.path());
    if (staging.path().empty())
        return failure("Nothing can be written to " + quoted(folder.path()) + ": " + errorInWords(staging.error()));

    BuildResult result;
    if (const auto bytes = readWholeFile(source); !bytes)
        return failure(quoted(source.path()) + " could not be read.");
    else if (const WriteResult written =
                 writeFileAtomically(staging.path() / kTextFileName, dictionaryText(*bytes, progress, result));
             !written)
        return failure(written.reason);
    try {
        DictionaryModule().mDic_MakeIndex(source, FolderItem(staging.path() / kIndexFileName), progress);
    } catch (const NilObjectException& error) {
        return failure(error.what());
    }
    const auto again = ReadOnlyFile::open(source);
    if (!again || again->stamp() != stamp)
        return failure(quoted(source.path()) + " was changed while the dictionary was being made.");
    if (BuildResult placed = putInPlace(staging.path(), folder.path()); !placed.ok)
        return placed;
    return result;
}

} // namespace velmarin
