#include "store/UserPreferencesFolder.h"
#include "support/CollectedMessages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

/// Sets an environment variable while it lives; nullptr takes it away.
class Environment {
  public:
    Environment(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name))
            old_ = old;
        set(value);
    }
    ~Environment() { set(old_ ? old_->c_str() : nullptr); }

  private:
    void set(const char* value) const { value != nullptr ? ::setenv(name_, value, 1) : ::unsetenv(name_); }
    const char* name_;
    std::optional<std::string> old_;
};

TEST(OpenFiModule, MakesThePerUserFolderOnceWithTheUsersName) {
    const TempFolder home;
    const fs::path config = home.path() / "config";
    {
        const Environment xdg("XDG_CONFIG_HOME", config.c_str());
        mFiMod_OpenThisModule();
        EXPECT_EQ(pFiMod_UserPrefContainer.path(), config / "Selorin_SoftWare");
        const std::string name = home.read("config/Selorin_SoftWare/LocalUserName");
        EXPECT_GT(name.size(), 1u);
        EXPECT_EQ(name.find('\n'), name.size() - 1);
        home.write("config/Selorin_SoftWare/LocalUserName", "kept");
        mFiMod_OpenThisModule();
        EXPECT_EQ(home.read("config/Selorin_SoftWare/LocalUserName"), "kept");
    }
    const Environment noXdg("XDG_CONFIG_HOME", "relative/paths/do/not/count");
    const Environment atHome("HOME", home.path().c_str());
    mFiMod_OpenThisModule();
    EXPECT_EQ(pFiMod_UserPrefContainer.path(), home.path() / ".config/Selorin_SoftWare");
}

TEST(OpenFiModule, WithoutAPreferencesFolderSaysSoWhereThereIsADesktop) {
    const TempFolder home;
    home.write(".config", "a file in the folder's place");
    fs::create_directories(home.path() / "Desktop");
    const Environment noXdg("XDG_CONFIG_HOME", nullptr);
    const Environment atHome("HOME", home.path().c_str());
    const test::CollectedMessages messages;
    mFiMod_OpenThisModule();
    EXPECT_EQ(messages.texts,
              std::vector<std::string>{"mFiMod_OpenThisModule::Application Dataフォルダが見つかりません。"});
    fs::create_directories(home.path() / "Application Data");
    mFiMod_OpenThisModule();
    EXPECT_TRUE(fs::exists(home.path() / "Application Data/Selorin_SoftWare/LocalUserName"));
}

} // namespace
} // namespace velmarin
