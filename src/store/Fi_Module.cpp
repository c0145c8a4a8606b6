#include "store/Fi_Module.h"

#include "files/AtomicFile.h"
#include "files/LineScanner.h"
#include "files/Move.h"
#include "files/StagedMembers.h"
#include "files/TextFile.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <system_error>

#include <pwd.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

std::set<std::string> allPictureExtensions() {
    return {"tif", "tiff", "jpg", "jpeg", "pict", "pct", "bmp", "png"};
}

std::string environmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

fs::path homeFolder() {
    const std::string home = environmentValue("HOME");
    if (home.starts_with('/'))
        return home;
    const passwd* user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

/// The host's folder for preferences, made where it is missing; empty where there is none and none can be made.
fs::path hostPreferencesFolder() {
    fs::path folder = environmentValue("XDG_CONFIG_HOME");
    if (!folder.is_absolute() && !homeFolder().empty())
        folder = homeFolder() / ".config";
    std::error_code error;
    fs::create_directories(folder, error);
    return fs::is_directory(folder, error) ? folder : fs::path();
}

/// The name of the local user in UTF-8.
std::string localUserName() {
    const passwd* user = ::getpwuid(::geteuid());
    return toValidUtf8(user != nullptr && user->pw_name != nullptr ? user->pw_name : environmentValue("USER"));
}

fs::path applicationFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path(error) : program.parent_path();
}

/// The first `count` characters of a UTF-8 text; a byte that belongs to no character counts as one.
std::string leftCharacters(std::string_view text, std::ptrdiff_t count) {
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) {
        ++at;
        while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
            ++at;
    }
    return std::string(text.substr(0, at));
}

std::string leftBytes(std::string_view text, std::ptrdiff_t count) {
    return std::string(text.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 0))));
}

FolderItem copyInto(const FolderItem& given, const FolderItem& destFolder, const std::string& newName, Links links) {
    const FolderItem source = links == Links::Followed ? given.resolved() : given;
    FolderItem target = isMemberName(newName) ? FolderItem(destFolder.path() / newName) : FolderItem();
    if (target.isNil() || liesIn(destFolder.path(), source.path()))
        return destFolder.Child(newName);
    const auto isFolder = [](const FolderItem& item) { return item.Directory() && !item.Alias(); };
    if (isFolder(target) && isFolder(source)) {
        for (const FolderItem& item : source.items())
            copyInto(item, target, item.Name(), links);
        return target;
    }
    Work quiet;
    Failures ignored;
    TreePlan plan = planTree(source.path(), destFolder.path(), links, Purpose::Copy, quiet);
    plan.unreadable.clear(); // what cannot be read is left out
    auto staged = plan.whole() && !target.occupied() ? StagedMembers::in(destFolder.path()) : std::nullopt;
    if (staged && staged->copy(plan, newName, quiet, ignored) == CopyOutcome::Whole)
        staged->moveTo(newName, target.path());
    return destFolder.Child(newName);
}

bool isPictureName(std::string_view name) {
    std::string extension = mFiMod_GetExtensionFromFileName(name);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return pPictureExtensions.contains(extension);
}

} // namespace

std::set<std::string> pPictureExtensions = allPictureExtensions();
FolderItem pFiMod_UserPrefContainer;

void mFiMod_OpenThisModule() {
    fs::path root = hostPreferencesFolder();
    if (root.empty()) {
        const fs::path home = homeFolder();
        std::error_code error;
        if (!home.empty() && fs::is_directory(home / "Desktop", error)) {
            root = home / "Application Data";
            if (!fs::exists(root, error))
                return MsgBox("mFiMod_OpenThisModule::Application Dataフォルダが見つかりません。");
        } else {
            root = applicationFolder();
        }
    }
    pFiMod_UserPrefContainer = FolderItem(root).Child("Selorin_SoftWare");
    if (!pFiMod_UserPrefContainer.Exists() && pFiMod_UserPrefContainer.CreateAsFolder())
        writeFileAtomically(pFiMod_UserPrefContainer.Child("LocalUserName").path(), localUserName() + "\n");
    pPictureExtensions = allPictureExtensions();
}

std::string mFiMod_GetExtensionFromFileName(std::string_view name) {
    const std::size_t point = name.rfind('.');
    return point == std::string_view::npos ? std::string() : std::string(name.substr(point + 1));
}

std::string mFiMod_RemoveExtesionFromFileName(std::string_view name) {
    return std::string(name.substr(0, name.rfind('.')));
}

std::string mFiMod_GetUniqueFileName(std::string_view name, const FolderItem& folder) {
    constexpr std::ptrdiff_t kMostBytes = 31; // what a name could have on the older volumes
    const auto free = [&](const std::string& candidate) { return !folder.Child(candidate).occupied(); };
    if (free(std::string(name)))
        return std::string(name);

    std::string ext = mFiMod_GetExtensionFromFileName(name);
    if (!ext.empty())
        ext.insert(0, 1, '.');
    std::string base = mFiMod_RemoveExtesionFromFileName(name);
    const std::ptrdiff_t room = kMostBytes - std::ssize(ext);
    if (std::ssize(base) > room)
        base = leftCharacters(base, room);
    if (free(base + ext))
        return base + ext;

    for (int n = 1;; ++n) {
        const std::string digits = Str(n);
        std::string candidate = base + "_" + digits + ext;
        // The candidate has its extension already, which `room` has taken off: the cut is asked for sooner than needed.
        if (std::ssize(candidate) > room)
            candidate = leftBytes(base, room - std::ssize(digits) - 1) + "_" + digits + ext;
        if (free(candidate))
            return candidate;
    }
}

FolderItem mFiMod_CopyFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder) {
    return copyInto(source, destFolder, source.Name(), Links::Kept);
}

FolderItem mFiMod_CopyFileOrFolderTo_Complete(const FolderItem& source, const FolderItem& destFolder) {
    return copyInto(source, destFolder, source.Name(), Links::Followed);
}

FolderItem mFiMod_CopyFiToFolderWIthNewName(const FolderItem& source, const FolderItem& destFolder,
                                            std::string_view newName) {
    return copyInto(source, destFolder, std::string(newName), Links::Followed);
}

FolderItem mFiMod_MoveFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder) {
    const std::string name = source.Name();
    if (destFolder.Child(name).occupied()) {
        MsgBox("The item which has the same name exists already.\n" + destFolder.AbsolutePath() + "\n" + name);
        return {};
    }
    Work quiet;
    Failures failures;
    Moves moves;
    if (!moves.move(source.path(), destFolder.path(), destFolder.path(), quiet, failures)) {
        moves.undo(quiet, failures);
        return {};
    }
    return moves.finish(quiet, failures) ? destFolder.Child(name) : FolderItem();
}

void mFiMod_GetTextFiLinesByLineNums(const FolderItem& file, const std::vector<int>& lineNumbers,
                                     std::vector<std::string>& lines) {
    if (file.isNil())
        return MsgBox("mFiMod_GetTextFiLinesByLineNums_StringArray, TextFileFi is NilObject.");
    if (!file.Exists())
        return MsgBox("mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist.");
    if (lineNumbers.empty())
        return MsgBox("mFiMod_GetTextFiLinesByLineNums_String, LineNum does not exist.");
    const auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return MsgBox("NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray");

    LineScanner scanner(*opened);
    std::string_view line;
    auto wanted = lineNumbers.begin();
    for (int number = 1; number <= lineNumbers.back() && wanted != lineNumbers.end() && scanner.next(line); ++number) {
        if (number == *wanted) {
            lines.emplace_back(line);
            ++wanted;
        }
    }
}

int mFiMod_GetLineCountFromTextFi(const FolderItem& file) {
    const auto opened = file.isNil() ? std::nullopt : ReadOnlyFile::open(file);
    if (!opened)
        return 0;
    LineScanner scanner(*opened);
    std::string_view line;
    int count = 0;
    while (count < std::numeric_limits<int>::max() && scanner.next(line))
        ++count;
    return count;
}

std::vector<std::string> pictureNames(const FolderItem& folder) {
    std::vector<std::string> pictures;
    for (const FolderItem& item : folder.items()) {
        const std::string name = item.Name();
        if (isPictureName(name) && item.Visible() && item.regularFile() &&
            name.find_first_of("\r\n") == std::string::npos)
            pictures.push_back(name);
    }
    return pictures;
}

bool mFiMod_MakeImageIndex(FolderItem folder, const std::function<FolderItem()>& askForFolder) {
    if (folder.isNil() && askForFolder)
        folder = askForFolder();
    if (folder.isNil())
        return false;
    const std::vector<std::string> pictures = pictureNames(folder);
    if (pictures.empty())
        return false;
    std::string text = Str(std::ssize(pictures) - 1) + "\n";
    for (const std::string& name : pictures)
        text += name + "\n";
    return writeFileAtomically(folder.Child("ImageIndex").path(), text).ok;
}

} // namespace velmarin
