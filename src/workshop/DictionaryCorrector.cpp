#include "workshop/DictionaryCorrector.h"

#include "files/AtomicFile.h"
#include "files/Leftovers.h"
#include "files/NewFile.h"
#include "files/ReadOnlyFile.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "maintenance/InterruptedUpdate.h"
#include "maintenance/Update.h"
#include "text/NilObjectException.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Writes a member of the new version, with the permissions of the one that it replaces.
Result writeMember(const fs::path& place, const FolderItem& replaced, std::string_view bytes) {
    NewFile file(place);
    if (!file.write(bytes) || !file.check())
        return Failure{replaced, "its new version could not be written: " + errorInWords(errno)};
    std::error_code error;
    const fs::perms permissions = fs::status(replaced.path(), error).permissions();
    fs::permissions(place, permissions, error); // file systems that keep none pass
    return {};
}

} // namespace

Result DictionaryCorrector::open(const FolderItem& folder, const FolderItem& corrections,
                                 DictionaryCorrector& corrector) {
    const FolderItem dictionary = folder.Name().empty() ? folder.Parent() : folder; // "Birds/"
    corrector.dictionary_ = dictionary;
    Work quiet;
    if (!dictionary.Alias())
        undoInterruptedUpdate(dictionary, quiet);
    if (const Result read = DictionaryText::read(dictionary, corrector.read_); !read)
        return read;
    try {
        corrector.pageList_ = readPageList(dictionary.Child("mImg"));
    } catch (const NilObjectException& error) {
        return Failure{dictionary, std::string("its pages could not be read: ") + error.what()};
    }
    corrector.pages_.clear();
    for (std::size_t i = 0; i < corrector.pageList_.names.size(); ++i)
        corrector.pages_.set(corrector.pageList_.names[i], static_cast<int>(i));
    corrector.text_ = corrector.read_;
    corrector.unsaved_.clear();
    corrector.file_ = correctionsFile(corrections, dictionary);
    clearLeftovers(corrector.file_.path().parent_path(), quiet);
    try {
        corrector.kept_ = parseCorrections(readFileIfAny(corrector.file_));
    } catch (const NilObjectException& error) {
        return Failure{dictionary, std::string("its corrections could not be read: ") + error.what()};
    }
    return {};
}

const std::string& DictionaryCorrector::captionOf(const std::string& file) const {
    return pages_.has(file) ? pageList_.captions[static_cast<std::size_t>(pages_.value(file))] : file;
}

std::vector<Correction> DictionaryCorrector::due() const {
    std::vector<Correction> due;
    if (kept_.empty())
        return due;
    DictionaryText corrected = text_;
    for (const Correction& each : kept_)
        if (!isDone(each, corrected) && makeCorrection(each, pages_, corrected))
            due.push_back(each);
    return due;
}

Result DictionaryCorrector::correct(const Correction& correction) {
    Result made = makeCorrection(correction, pages_, text_);
    if (made)
        unsaved_.push_back(correction);
    return made;
}

void DictionaryCorrector::undo() {
    if (unsaved_.empty())
        return;
    unsaved_.pop_back();
    text_ = read_;
    for (const Correction& each : unsaved_) {
        [[maybe_unused]] const Result again = makeCorrection(each, pages_, text_); // as it did before
    }
}

Result DictionaryCorrector::checkWritable() const {
    for (const FolderItem& each : {dictionary_, dictionary_.Child("ind"), dictionary_.Child("txt")})
        if (::faccessat(AT_FDCWD, each.path().c_str(), W_OK, AT_EACCESS) != 0)
            return Failure{each, "it cannot be changed: " + errorInWords(errno)};
    return {};
}

Result DictionaryCorrector::keep() const {
    std::vector<Correction> all = kept_;
    for (const Correction& each : unsaved_)
        if (std::find(all.begin(), all.end(), each) == all.end())
            addCorrection(all, each);
    std::error_code error;
    fs::create_directories(file_.path().parent_path(), error);
    return writeFileAtomically(file_.path(), formatCorrections(all));
}

MaintenanceResult DictionaryCorrector::replace(const FolderItem& backups, const Progress& progress) const {
    MaintenanceResult result;
    const auto staged = StagedMembers::in(file_.path().parent_path());
    const FolderItem version(staged ? staged->placeOf(dictionary_.Name()) : file_.path());
    if (!staged || !makeFolder(version.path())) {
        result.fail(version, "nothing can be written there: " + errorInWords(errno));
        return result;
    }
    for (const auto& [name, bytes] : {std::pair("ind", text_.indBytes()), std::pair("txt", text_.txtBytes())})
        if (const Result written = writeMember(version.path() / name, dictionary_.Child(name), bytes); !written) {
            result.failures.push_back(written.failure());
            return result;
        }
    const auto unchanged = [this](const FolderItem& copy) {
        return read_.isAsRead(copy) ? Result() : Failure{copy, "it was changed meanwhile. Open it again"};
    };
    return updateDictionary(version, {dictionary_}, backups, progress, unchanged);
}

MaintenanceResult DictionaryCorrector::save(const FolderItem& backups, const Progress& progress) {
    MaintenanceResult result;
    Result possible = checkWritable();
    if (possible)
        possible = keep();
    if (!possible) {
        result.failures.push_back(possible.failure());
        return result;
    }
    result = replace(backups, progress);
    if (!result.failures.empty())
        return result;
    const FolderItem corrections = file_.Parent().Parent();
    if (const Result again = open(FolderItem(dictionary_), corrections, *this); !again)
        result.failures.push_back(again.failure());
    return result;
}

} // namespace velmarin
