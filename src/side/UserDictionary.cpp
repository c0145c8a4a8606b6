#include "side/UserDictionary.h"

#include "files/AtomicFile.h"
#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/FolderLock.h"
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
#include "text/NilObjectException.h"
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

Failure notRead(const FolderItem& item) {
    return {item, "it could not be read: " + errorInWords(errno)};
}

/// With the reason in errno.
Failure notWritten(const FolderItem& item) {
    return {item, "it could not be written: " + errorInWords(errno)};
}

/// The first failure, with the others in its reason.
Failure joined(const Failures& failures) {
    Failure all = failures.front();
    for (std::size_t i = 1; i < failures.size(); ++i)
        all.reason += "; " + failures[i].message();
    return all;
}

/// Fails if one of the files in `folder` must not be replaced.
Result checkReplaceable(const FolderItem& source, const FolderItem& folder) {
    for (const std::string_view name : {kTextFileName, kIndexFileName}) {
        const FolderItem member = folder.Child(name);
        std::error_code error;
        if (member.Directory())
            return Failure{member, "it is a folder."};
        if (member.Exists() && fs::equivalent(member.path(), source.path(), error))
            return Failure{member, "it is the data file itself. Choose another folder for the dictionary."};
    }
    return {};
}

bool holdsUserDictionary(const FolderItem& folder) {
    return folder.Child(kTextFileName).occupied() || folder.Child(kIndexFileName).occupied();
}

/// The source in pieces of whole lines. A line that is longer than a piece is not cut.
class LinePieces {
  public:
    explicit LinePieces(const ReadOnlyFile& file) : file_(file) {}

    /// False at the end of the file. The piece is valid until the next call.
    bool next(std::string_view& piece) {
        buffer_.erase(0, std::exchange(taken_, 0));
        for (std::size_t searched = 0; taken_ == 0; searched = buffer_.size()) {
            const std::size_t had = buffer_.size();
            buffer_.resize(had + kPiece);
            buffer_.resize(had + file_.readOrRaise(at_, buffer_.data() + had, kPiece));
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

    /// The position after the last complete line; 0 if there is none. The first `searched` bytes have none.
    std::size_t endOfLines(std::size_t searched) const {
        const std::string_view unsearched = std::string_view(buffer_).substr(searched > 0 ? searched - 1 : 0);
        const std::size_t before = buffer_.size() - unsearched.size();
        const std::size_t lineFeed = unsearched.rfind('\n');
        if (lineFeed != std::string_view::npos)
            return before + lineFeed + 1;
        // The LF that belongs to a CR at the very end may not have been read yet.
        const std::size_t carriageReturn = unsearched.substr(0, unsearched.size() - 1).rfind('\r');
        return carriageReturn == std::string_view::npos ? 0 : before + carriageReturn + 1;
    }

    const ReadOnlyFile& file_;
    std::string buffer_;
    std::size_t taken_ = 0;
    std::uint64_t at_ = 0;
};

/// The lines of `bytes` with their superscripts and line ends.
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

/// One build: the files are staged and then swapped with the earlier ones.
class Build {
  public:
    Build(const FolderItem& source, const FolderItem& folder, ProgressPort& progress)
        : source_(source), folder_(folder), progress_(progress),
          work_([&progress](const WorkDone&) { progress.yield(); }) {}

    BuildResult run(ExistingDictionary earlier, const FolderItem& backups) {
        try {
            if (const Result built = build(earlier, backups); !built)
                result_.reason = built.failure().message();
        } catch (const NilObjectException& unreadable) {
            result_.reason = unreadable.what();
        }
        result_.ok = result_.reason.empty();
        return result_;
    }

  private:
    Result build(ExistingDictionary earlier, const FolderItem& backups) {
        const FolderLock lock(folder_.path(), FolderLock::Kind::Alone, work_);
        clearLeftovers(folder_.path(), work_);
        const auto file = ReadOnlyFile::open(source_);
        if (!file)
            return notRead(source_);
        const FileStamp stamp = file->stamp();
        if (const Result replaceable = checkReplaceable(source_, folder_); !replaceable)
            return replaceable;
        result_.earlierRefused = earlier == ExistingDictionary::Refuse && holdsUserDictionary(folder_);
        if (result_.earlierRefused)
            return Failure{folder_, "it already holds a user dictionary."};
        if (earlier == ExistingDictionary::BackUp)
            saveLeftovers(backups);
        auto staged = StagedMembers::in(folder_.path());
        if (!staged)
            return Failure{folder_, "nothing can be written to it: " + errorInWords(errno)};
        if (const Result text = writeText(*staged, *file); !text)
            return text;
        if (const Result index = writeIndex(*staged); !index)
            return index;
        const auto again = ReadOnlyFile::open(source_);
        if (!again || again->stamp() != stamp)
            return Failure{source_, "it was changed while the dictionary was being made."};
        return putInPlace(*staged, earlier, backups);
    }

    Result writeText(StagedMembers& staged, const ReadOnlyFile& file) {
        NewFile text(staged.placeOf(kTextFileName));
        LinePieces pieces(file);
        for (std::string_view piece; text && pieces.next(piece);)
            text.write(dictionaryText(piece, progress_, result_));
        if (text && pieces.read() < file.stamp().size)
            return Failure{source_, "it could not be read to its end."};
        if (!text.flush())
            return notWritten(FolderItem(folder_.path() / kTextFileName));
        staged.add(std::string(kTextFileName));
        return {};
    }

    Result writeIndex(StagedMembers& staged) {
        return makeUserDictionaryIndex(DictionaryModule(), source_, progress_, [&](std::string_view bytes) {
            NewFile index(staged.placeOf(kIndexFileName));
            if (!index.write(bytes) || !index.flush())
                return Result(notWritten(FolderItem(folder_.path() / kIndexFileName)));
            staged.add(std::string(kIndexFileName));
            return Result();
        });
    }

    Result putInPlace(StagedMembers& staged, ExistingDictionary earlier, const FolderItem& backups) {
        Failures failures;
        // The index goes first and comes last, so that no index is ever beside a text that it does not belong to.
        if (!staged.beginSwap())
            return notWritten(folder_);
        if (!staged.swap({std::string(kIndexFileName), std::string(kTextFileName)}, work_, failures))
            return joined(failures);
        if (earlier != ExistingDictionary::BackUp)
            return staged.forgetOld() ? Result() : undo(staged, failures);
        const auto old = staged.keepOld();
        if (!old)
            return undo(staged, failures);
        const Saving saving = old->empty() ? Saving::Done : save(*old, backups, failures);
        if (saving == Saving::Done) {
            staged.drop(work_);
            return {};
        }
        if (saving == Saving::Partial || !staged.undoKeepOld())
            failures.push_back({folder_, "it is replaced, but not all replaced files could be saved. The next build "
                                         "tries again"});
        else
            staged.undo(work_, failures);
        return joined(failures);
    }

    Result undo(StagedMembers& staged, Failures& failures) {
        failures.push_back({folder_, "it could not be written: " + errorInWords(errno)});
        staged.undo(work_, failures);
        return joined(failures);
    }

    enum class Saving { Done, Undone, Partial };

    /// Moves an earlier pair to a new folder in `backups`, or leaves it where it is if that fails. Files that had to be
    /// copied also stay where they were; the hidden folder that holds them is removed later.
    Saving save(const std::vector<fs::path>& pair, const FolderItem& backups, Failures& failures) {
        const auto backup =
            backups.CreateAsFolder() ? makeBackupFolder(folder_.Name(), 0, backups) : std::optional<fs::path>();
        if (!backup) {
            failures.push_back({backups, "a folder for the replaced files could not be made: " + errorInWords(errno)});
            return Saving::Undone;
        }
        clearLeftovers(backups.path(), work_);
        Moves moves;
        for (const fs::path& each : pair) {
            if (!moves.move(each, *backup, backups.path(), work_, failures)) {
                return moves.undo(work_, failures) ? Saving::Undone : Saving::Partial;
            }
        }
        return Saving::Done;
    }

    /// Saves what a killed build has replaced and not saved. If that fails, it stays in its hidden folder.
    void saveLeftovers(const FolderItem& backups) {
        Failures ignored;
        for (const fs::path& leftover : unsavedMembers(folder_.path())) {
            const auto old = oldMembersIn(leftover);
            if (old && save(*old, backups, ignored) == Saving::Done)
                removeSaved(leftover, work_);
        }
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
                                ExistingDictionary earlier, const FolderItem& backups) {
    return Build(source, folder, progress).run(earlier, backups);
}

} // namespace velmarin
