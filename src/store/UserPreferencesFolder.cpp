#include "store/UserPreferencesFolder.h"

#include "files/AtomicFile.h"
#include "text/Message.h"
#include "text/Utf8.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include <pwd.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

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

/// The host's folder for preferences, made where it is missing; empty if there is none and none can be made.
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

} // namespace

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
    if (!pFiMod_UserPrefContainer.Exists() && pFiMod_UserPrefContainer.CreateAsFolder()) {
        // Nothing reads the file, so a failure is not reported.
        [[maybe_unused]] const Result ignored =
            writeFileAtomically(pFiMod_UserPrefContainer.Child("LocalUserName").path(), localUserName() + "\n");
    }
}

} // namespace velmarin
