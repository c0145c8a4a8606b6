// Ends the maintenance commands at every system call that changes a disk, and fails each of these calls with a full
// disk: nothing may be lost, and the command run again completes.

#include "RunProgram.h"
#include "SweepFileSystems.h"
#include "Trees.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>
#include <regex>
#include <sstream>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

/// A question mark: not every processor has the call, and strace ignores it there.
constexpr const char* kWriteCalls =
    "openat,write,?pwrite64,?copy_file_range,?sync_file_range,?sync_file_range2,fsync,?fdatasync,ftruncate,?mkdir,"
    "mkdirat,?symlink,symlinkat,?link,linkat,?rename,?renameat,renameat2,?unlink,unlinkat,?rmdir,?chmod,fchmod,"
    "fchmodat,utimensat";

constexpr const char* kNoExchange = "inject=renameat2:error=EINVAL";

struct Call {
    std::string name;
    int number; ///< among the calls of that name, from 1
};

enum class Place { SameFileSystem, OtherFileSystem };
enum class Blow { Killed, DiskFull };

/// A command on folders that are set up again for each run.
struct Scene {
    std::string name;
    std::vector<std::string> command;
    /// Puts the folders into their first state.
    std::function<void()> setUp;
    /// Must hold at any time.
    std::function<void()> nothingIsLost;
    /// Must hold after a run that reported success.
    std::function<void()> isDone;
    /// Must also hold after a run that failed without a kill, and after `failing`, a run that must fail, followed a
    /// kill.
    std::function<void()> isConsistent = [] {};
    std::vector<std::string> failing;
    /// The file system cannot exchange names, and the disk is full for the second run too.
    bool poorFileSystem = false;
};

/// Whether an item with that name and content is anywhere below `top`.
bool isSomewhere(const fs::path& top, const std::string& name, const Tree& tree) {
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        if (entry.path().filename() == name && treeOf(entry.path()) == tree)
            return true;
    }
    return false;
}

class MaintenanceSweep : public ::testing::TestWithParam<std::tuple<Place, Blow>> {
  protected:
    static void SetUpTestSuite() { places_ = std::make_unique<SweepFileSystems>(); }
    static void TearDownTestSuite() { places_.reset(); }

    void SetUp() override {
        if (runProgram({"strace", "-f", "-o", log(), "true"}, output()).status != 0)
            GTEST_SKIP() << "strace is missing, or the kernel lets no process be traced";
        near_ = places_->nearFolder() / "near";
        far_ = places_->nearFolder() / "far";
        if (std::get<0>(GetParam()) == Place::OtherFileSystem) {
            if (places_->farFolder().empty())
                GTEST_SKIP() << "the kernel forbids mount namespaces, and /dev/shm is on the same file system";
            far_ = places_->farFolder() / "far";
        }
    }

    std::string log() const { return folder_.path() / "strace.log"; }
    fs::path output() const { return folder_.path() / "output"; }
    fs::path near(const std::string& name) const { return near_ / name; }
    fs::path far(const std::string& name) const { return far_ / name; }

    void empty() const {
        for (const fs::path& each : {near_, far_}) {
            fs::remove_all(each);
            fs::create_directory(each);
        }
    }

    static void write(const fs::path& file, const std::string& bytes) {
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
    }

    void writeNewVersion() const {
        const fs::path dictionary = near("source/Webster");
        write(dictionary / "FW", "");
        write(dictionary / "ind", "new index");
        write(dictionary / "BW", "only the new one has it");
        write(dictionary / "mImg/p1.tif", std::string(9000, 'n'));
        write(dictionary / "mImg/deep/p2.tif", "a new page");
        makeLink(dictionary / "mPimg", "mImg");
    }

    std::vector<std::string> traced(const std::vector<std::string>& options,
                                    const std::vector<std::string>& command) const {
        std::vector<std::string> words{"strace", "-f", "-qq", "-o", log()};
        words.insert(words.end(), options.begin(), options.end());
        words.push_back(SWEEP_PROGRAM);
        words.insert(words.end(), command.begin(), command.end());
        return words;
    }

    std::vector<std::string> plain(const std::vector<std::string>& command) const {
        std::vector<std::string> words{SWEEP_PROGRAM};
        words.insert(words.end(), command.begin(), command.end());
        return words;
    }

    /// The calls of an undisturbed run that change something or list a folder.
    std::vector<Call> callsOf(const Scene& scene) const {
        scene.setUp();
        std::vector<std::string> options{"-e", std::string("trace=") + kWriteCalls};
        if (scene.poorFileSystem)
            options.insert(options.end(), {"-e", kNoExchange});
        EXPECT_EQ(runProgram(traced(options, scene.command), output()).status, 0) << textOf(output());
        scene.isDone();
        std::vector<Call> calls;
        std::map<std::string, int> counts;
        std::istringstream lines(textOf(log()));
        const std::regex start(R"(^\d+ +(\w+)\()");
        for (std::string line; std::getline(lines, line);) {
            std::smatch match;
            if (!std::regex_search(line, match, start))
                continue;
            const int number = ++counts[match[1]];
            // Of openat, those that make a file or list a folder: without the others the program does not start.
            if (match[1] != "openat" || line.find("O_CREAT") != std::string::npos ||
                line.find("O_DIRECTORY") != std::string::npos)
                calls.push_back({match[1], number});
        }
        return calls;
    }

    void sweep(const Scene& scene) const {
        const std::vector<Call> calls = callsOf(scene);
        ASSERT_GT(calls.size(), 20U);
        RecordProperty("calls", static_cast<int>(calls.size()));
        const bool kill = std::get<1>(GetParam()) == Blow::Killed;
        for (const Call& call : calls) {
            SCOPED_TRACE(scene.name + ", " + call.name + " number " + std::to_string(call.number));
            scene.setUp();
            const std::string injected = "inject=" + call.name + (kill ? ":signal=KILL" : ":error=ENOSPC") +
                                         ":when=" + std::to_string(call.number);
            std::vector<std::string> options{"-e", "trace=" + call.name, "-e", injected};
            if (scene.poorFileSystem && call.name != "renameat2")
                options = {"-e", "trace=renameat2," + call.name, "-e", kNoExchange, "-e", injected};
            const ProgramRun first = runProgram(traced(options, scene.command), output());
            ASSERT_EQ(first.killed, kill) << textOf(output());
            scene.nothingIsLost();
            if (first.status == 0)
                scene.isDone();
            if (kill && !scene.failing.empty()) {
                ASSERT_EQ(runProgram(plain(scene.failing), output()).status, 2) << textOf(output());
                scene.nothingIsLost();
            }
            if (!kill || !scene.failing.empty())
                scene.isConsistent();
            if (scene.poorFileSystem) {
                runProgram(traced({"-e", "trace=mkdir", "-e", "inject=mkdir:error=ENOSPC"}, scene.command), output());
                scene.nothingIsLost();
            }
            const ProgramRun second = runProgram(plain(scene.command), output());
            ASSERT_EQ(second.status, 0) << textOf(output());
            scene.nothingIsLost();
            scene.isDone();
            ASSERT_EQ(leftoversIn(near_), std::vector<std::string>{});
            ASSERT_EQ(leftoversIn(far_), std::vector<std::string>{});
            if (HasFailure())
                return;
        }
    }

    static std::unique_ptr<SweepFileSystems> places_;
    TempFolder folder_;
    fs::path near_;
    fs::path far_;
};

std::unique_ptr<SweepFileSystems> MaintenanceSweep::places_;

TEST_P(MaintenanceSweep, InstallShowsTheDictionaryWholeOrNotAtAll) {
    Scene scene;
    scene.name = "install";
    scene.command = {"install", near("source/Webster"), far("Group")};
    scene.setUp = [this] {
        empty();
        writeNewVersion();
        fs::create_directories(far("Group"));
    };
    scene.nothingIsLost = [this] {
        const Tree there = treeOf(far("Group/Webster"));
        ASSERT_TRUE(there.empty() || there == treeOf(near("source/Webster")));
    };
    scene.isDone = [this] { ASSERT_EQ(treeOf(far("Group/Webster")), treeOf(near("source/Webster"))); };
    sweep(scene);
}

TEST_P(MaintenanceSweep, ExportKeepsTheOldOneUntilTheNewOneIsWhole) {
    Tree oldOne, newOne;
    Scene scene;
    scene.name = "export";
    scene.command = {"export", "--replace", near("source/Webster"), far("Out")};
    scene.setUp = [&] {
        empty();
        writeNewVersion();
        write(far("Out/Webster/FW"), "old");
        write(far("Out/Webster/mImg/p9.tif"), "an old page");
        oldOne = treeOf(far("Out/Webster"));
        newOne = treeOf(near("source/Webster"));
        const Tree pages = treeOf(near("source/Webster/mImg"));
        for (const auto& [path, what] : pages)
            newOne[path == "." ? "mPimg" : "mPimg/" + path] = what;
    };
    scene.nothingIsLost = [&] {
        const Tree there = treeOf(far("Out/Webster"));
        ASSERT_TRUE(there == oldOne || there == newOne);
    };
    scene.isDone = [&] { ASSERT_EQ(treeOf(far("Out/Webster")), newOne); };
    sweep(scene);
}

TEST_P(MaintenanceSweep, ExportWithoutExchangeKeepsTheOldOneUnderOneNameOrTheOther) {
    Tree oldOne, newOne;
    Scene scene;
    scene.name = "export without exchange";
    scene.poorFileSystem = true;
    scene.command = {"export", "--replace", near("source/Webster"), far("Out")};
    scene.setUp = [&] {
        empty();
        write(near("source/Webster/FW"), "");
        write(near("source/Webster/mImg/p1.tif"), "a new page");
        write(far("Out/WEBSTER/FW"), "old");
        oldOne = treeOf(far("Out/WEBSTER"));
        newOne = treeOf(near("source/Webster"));
    };
    scene.nothingIsLost = [&] {
        ASSERT_TRUE(treeOf(far("Out/Webster")) == newOne || isSomewhere(far("Out"), "WEBSTER", oldOne));
    };
    scene.isDone = [&] {
        ASSERT_EQ(treeOf(far("Out/Webster")), newOne);
        ASSERT_FALSE(fs::exists(far("Out/WEBSTER")));
    };
    sweep(scene);
}

TEST_P(MaintenanceSweep, UpdateKeepsEachOldMemberAndNeverMixesTwoVersions) {
    const std::vector<std::string> replaced{"FW", "ind", "mImg", "txt"};
    const fs::path copy = near("DictionaryFolder/Group/webster");
    std::map<std::string, Tree> oldMembers, newMembers;
    Scene scene;
    scene.name = "update";
    scene.command = {"update", near("source/Webster"), near("DictionaryFolder"), far("Desktop")};
    scene.setUp = [&] {
        empty();
        writeNewVersion();
        write(near("source/Webster/txt"), "new text");
        write(copy / "FW", "old mark");
        write(copy / "ind", "old index");
        write(copy / "txt", "old text");
        write(copy / "mImg/p1.tif", std::string(5000, 'o'));
        makeLink(copy / "mImg/first", "p1.tif");
        write(copy / ".hidden", "invisible");
        write(copy / "Format", "only the old one has it");
        fs::create_directories(far("Desktop"));
        for (const auto& entry : fs::directory_iterator(copy))
            oldMembers[entry.path().filename()] = treeOf(entry.path());
        for (const auto& entry : fs::directory_iterator(near("source/Webster")))
            newMembers[entry.path().filename()] = treeOf(entry.path());
    };
    scene.nothingIsLost = [&] {
        ASSERT_EQ(treeOf(copy / "Format"), oldMembers["Format"]);
        ASSERT_EQ(treeOf(copy / ".hidden"), oldMembers[".hidden"]);
        for (const std::string& member : replaced)
            ASSERT_TRUE(isSomewhere(copy, member, oldMembers[member]) ||
                        isSomewhere(far("Desktop"), member, oldMembers[member]))
                << member;
        for (const auto& [member, tree] : newMembers) {
            const Tree there = treeOf(copy / member);
            ASSERT_TRUE(there.empty() || there == tree || there == oldMembers[member]) << member;
        }
    };
    scene.isConsistent = [&] {
        const bool updated = treeOf(copy / "ind") == newMembers["ind"];
        for (const char* member : {"ind", "txt", "mImg"})
            ASSERT_EQ(treeOf(copy / member), updated ? newMembers[member] : oldMembers[member]) << member;
    };
    scene.isDone = [&] {
        for (const auto& [member, tree] : newMembers)
            ASSERT_EQ(treeOf(copy / member), tree) << member;
        for (const std::string& member : replaced)
            ASSERT_TRUE(isSomewhere(far("Desktop"), member, oldMembers[member])) << member;
    };
    sweep(scene);
}

class UserDictionaryPair {
  public:
    explicit UserDictionaryPair(fs::path folder) : folder_(std::move(folder)) {}

    bool isOld() const { return is("old\tx\n", "OLD\t0\n"); }
    bool isNew() const { return is("new\ty\n", "NEW\t0\n"); }

  private:
    bool is(const char* text, const char* index) const {
        return textOf(folder_ / "Text.txt") == text && textOf(folder_ / "Index.txt") == index;
    }
    fs::path folder_;
};

TEST_P(MaintenanceSweep, AUserDictionaryIsTheOldOneOrTheNewOne) {
    const UserDictionaryPair pair(far("Mine"));
    for (const bool kept : {false, true}) {
        Scene scene;
        scene.name = kept ? "user dictionary, the old one kept" : "user dictionary";
        const fs::path source = near("source.txt"), missing = near("missing.txt");
        const auto command = [&](const fs::path& data) -> std::vector<std::string> {
            return kept ? std::vector<std::string>{"keep", data, far("Mine"), near("Desktop")}
                        : std::vector<std::string>{"user-dictionary", "build", "--replace", data, far("Mine")};
        };
        scene.command = command(source);
        scene.failing = command(missing);
        scene.setUp = [&] {
            empty();
            write(source, "new\ty\n");
            write(far("Mine/Text.txt"), "old\tx\n");
            write(far("Mine/Index.txt"), "OLD\t0\n");
            fs::create_directories(near("Desktop"));
            fs::create_directory(missing);
        };
        scene.nothingIsLost = [&] {
            for (const auto& [name, bytes] : {std::pair("Text.txt", "file old\tx\n"), {"Index.txt", "file OLD\t0\n"}})
                ASSERT_TRUE((!kept && pair.isNew()) || isSomewhere(far("Mine"), name, {{".", bytes}}) ||
                            isSomewhere(near("Desktop"), name, {{".", bytes}}))
                    << name;
        };
        scene.isConsistent = [&] { ASSERT_TRUE(pair.isOld() || pair.isNew()); };
        scene.isDone = [&] {
            ASSERT_TRUE(pair.isNew());
            ASSERT_TRUE(!kept || isSomewhere(near("Desktop"), "Text.txt", {{".", "file old\tx\n"}}));
        };
        sweep(scene);
    }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, MaintenanceSweep,
                         ::testing::Combine(::testing::Values(Place::SameFileSystem, Place::OtherFileSystem),
                                            ::testing::Values(Blow::Killed, Blow::DiskFull)),
                         [](const auto& info) {
                             return std::string(std::get<0>(info.param) == Place::SameFileSystem ? "SameFileSystem"
                                                                                                 : "OtherFileSystem") +
                                    (std::get<1>(info.param) == Blow::Killed ? "Killed" : "DiskFull");
                         });

} // namespace
} // namespace velmarin::test
