#include "side/UserDictionary.h"

#include "files/AtomicFile.h"
#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/Leftovers.h"
#include "files/LineReader.h"
#include "files/MemberSwap.h"
#include "files/Moves.h"
#include "files/NewFile.h"
#include "files/ReadOnlyFile.h"
#include "files/RemoveTree.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "side/DictionaryModule.h"
#include "side/UserDictionaryIndex.h"
#include "store/BackupFolder.h"
#include "text/FindReplace.h"
#include "text/Utf8.h"

#include <array>
#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

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

std::string quoted(const fs::path& path) {
    return "\"" + path.native() + "\"";
}

BuildResult failure(std::string reason) {
    return {.ok = false, .reason = std::move(reason)};
}

/// Why the files in `folder` may not be replaced; nothing where they may.
std::optional<std::string> obstacle(const FolderItem& source, const FolderItem& folder) {
    for (const std::string_view name : {kTextFileName, kIndexFileName}) {
        const FolderItem member = folder.Child(name);
        std::error_code error;
        if (member.Directory())
            return quoted(member.path()) + " is a folder.";
        if (member.Exists() && fs::equivalent(member.path(), source.path(), error))
            return quoted(member.path()) + " is the data file itself. Choose another folder for the dictionary.";
    }
    return std::nullopt;
}

bool holdsUserDictionary(const FolderItem& folder) {
    return folder.Child(kTextFileName).occupied() || folder.Child(kIndexFileName).occupied();
}

/// The source a piece at a time, cut at the ends of lines. A line that is longer than a piece comes whole.
class Pieces {
  public:
    explicit Pieces(const ReadOnlyFile& file) : file_(file) {}

    /// False at the end of the file. The piece lasts until the next call.
    bool next(std::string_view& piece) {
        buffer_.erase(0, std::exchange(taken_, 0));
        for (std::size_t searched = 0; taken_ == 0; searched = buffer_.size()) {
            const std::size_t had = buffer_.size();
            buffer_.resize(had + kPiece);
            buffer_.resize(had + file_.read(at_, buffer_.data() + had, kPiece));
            at_ += buffer_.size() - had;
            taken_ = buffer_.size() == had ? had : endOfLines(searched);
            if (buffer_.empty())
                return false;
        }
        piece = std::string_view(buffer_).substr(0, taken_);
        return true;
    }

    /// How many bytes of the file have been read.
    std::uint64_t read() const { return at_; }

  private:
    static constexpr std::size_t kPiece = std::size_t{1} << 20;

    /// After the last end of a line that is known to be whole; 0 where there is none.
    std::size_t endOfLines(std::size_t searched) const {
        const std::string_view fresh = std::string_view(buffer_).substr(searched > 0 ? searched - 1 : 0);
        const std::size_t before = buffer_.size() - fresh.size();
        const std::size_t lineFeed = fresh.rfind('\n');
        if (lineFeed != std::string_view::npos)
            return before + lineFeed + 1;
        // A CR at the very end may have its LF in what comes next.
        const std::size_t carriageReturn = fresh.substr(0, fresh.size() - 1).rfind('\r');
        return carriageReturn == std::string_view::npos ? 0 : before + carriageReturn + 1;
    }

    const ReadOnlyFile& file_;
    std::string buffer_;
    std::size_t taken_ = 0;
    std::uint64_t at_ = 0;
};

/// The lines of `bytes` with their ends, the superscripts set.
std::string dictionaryText(std::string_view bytes, ProgressPort& progress, BuildResult& result) {
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

/// One build, in which the files are staged and then change places with the earlier ones.
class Build {
  public:
    Build(const FolderItem& source, const FolderItem& folder, ProgressPort& progress)
        : source_(source), folder_(folder), progress_(progress),
          work_([&progress](const WorkDone&) { progress.yield(); }) {}

    BuildResult run(EarlierPair earlier, const FolderItem& backups) {
        clearLeftovers(folder_.path(), work_);
        const auto file = ReadOnlyFile::open(source_);
        if (!file)
            return failure(quoted(source_.path()) + " could not be read.");
        const FileStamp stamp = file->stamp();
        if (const auto why = obstacle(source_, folder_))
            return failure(*why);
        if (earlier == EarlierPair::Refused && holdsUserDictionary(folder_)) {
            result_ = failure(quoted(folder_.path()) + " already holds a user dictionary.");
            result_.earlierRefused = true;
            return result_;
        }
        if (earlier == EarlierPair::Saved)
            saveLeftovers(backups);
        auto staged = StagedMembers::in(folder_.path());
        if (!staged)
            return failure("Nothing can be written to " + quoted(folder_.path()) + ": " + errorInWords(errno));
        if (const auto why = write(*staged, *file))
            return failure(*why);
        const auto again = ReadOnlyFile::open(source_);
        if (!again || again->stamp() != stamp)
            return failure(quoted(source_.path()) + " was changed while the dictionary was being made.");
        if (const auto why = putInPlace(*staged, earlier, backups))
            return failure(*why);
        return result_;
    }

  private:
    static std::string notWritten(const fs::path& path) {
        return quoted(path) + " could not be written: " + errorInWords(errno);
    }

    std::optional<std::string> write(StagedMembers& staged, const ReadOnlyFile& file) {
        NewFile text(staged.placeOf(kTextFileName));
        Pieces pieces(file);
        for (std::string_view piece; text && pieces.next(piece);)
            text.write(dictionaryText(piece, progress_, result_));
        if (text && pieces.read() < file.stamp().size)
            return quoted(source_.path()) + " could not be read.";
        if (!text.flush())
            return notWritten(folder_.path() / kTextFileName);
        staged.add(std::string(kTextFileName));
        std::string why = quoted(source_.path()) + " could not be read.";
        const bool made = makeUserDictionaryIndex(DictionaryModule(), source_, progress_, [&](std::string_view bytes) {
            NewFile index(staged.placeOf(kIndexFileName));
            const bool written = index.write(bytes) && index.flush();
            why = notWritten(folder_.path() / kIndexFileName);
            return written;
        });
        if (!made)
            return why;
        staged.add(std::string(kIndexFileName));
        return std::nullopt;
    }

    std::optional<std::string> putInPlace(StagedMembers& staged, EarlierPair earlier, const FolderItem& backups) {
        Failures failures;
        // The index goes first and comes last: no index is ever beside a text that it does not belong to.
        if (!staged.beginSwap())
            return notWritten(folder_.path());
        if (!staged.swap({std::string(kIndexFileName), std::string(kTextFileName)}, work_, failures))
            return told(failures);
        if (earlier != EarlierPair::Saved)
            return staged.forgetOld() ? std::nullopt : std::optional(notWritten(folder_.path()));
        const auto old = staged.keepOld();
        if (!old)
            return notWritten(folder_.path());
        if (old->empty() || save(*old, backups, failures)) {
            staged.drop(work_);
            return std::nullopt;
        }
        if (!staged.undoKeepOld() || !staged.undo(work_))
            failures.push_back({folder_, "what was replaced could not be put back: " + errorInWords(errno)});
        return told(failures);
    }

    /// Moves an earlier pair to a new folder in `backups`; it stays where that fails. What had to be copied there stays
    /// too, for the hidden folder that holds it to be removed.
    bool save(const std::vector<fs::path>& pair, const FolderItem& backups, Failures& failures) {
        const FolderItem backup(backups.path() / backupFolderName(folder_.Name(), 0, backups));
        if (!backups.CreateAsFolder() || !makeFolder(backup.path())) {
            failures.push_back({backup, "the folder could not be made: " + errorInWords(errno)});
            return false;
        }
        clearLeftovers(backups.path(), work_);
        Moves moves;
        for (const fs::path& each : pair) {
            if (!moves.move(each, backup.path(), backups.path(), work_, failures)) {
                moves.undo(work_, failures);
                return false;
            }
        }
        return true;
    }

    /// What a killed build has replaced and not yet saved; it stays hidden where that fails.
    void saveLeftovers(const FolderItem& backups) {
        Failures ignored;
        for (const fs::path& leftover : unsavedMembers(folder_.path())) {
            const auto old = membersIn(leftover / kOldMembers);
            if (old && save(*old, backups, ignored))
                removeTree(leftover, work_);
        }
    }

    static std::string told(const Failures& failures) {
        std::string text;
        for (const Failure& each : failures)
            text += (text.empty() ? "" : "; ") + quoted(each.item.path()) + ": " + each.reason;
        return text;
    }

    const FolderItem& source_;
    const FolderItem& folder_;
    ProgressPort& progress_;
    Work work_;
    BuildResult result_;
};

} // namespace

std::string withSuperscripts(std::string_view line) {
    std::string result(line);
    for (const auto& [marker, replacement] : kSuperscripts)
        result = ReplaceAll(result, marker, replacement);
    return result;
}

BuildResult buildUserDictionary(const FolderItem& source, const FolderItem& folder, ProgressPort& progress,
                                EarlierPair earlier, const FolderItem& backups) {
    return Build(source, folder, progress).run(earlier, backups);
}

} // namespace velmarin
