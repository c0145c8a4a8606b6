// Kills the maintenance commands at every system call that changes a disk, fails each of these calls with a full
// disk, and each call that renames or removes a folder together with the next one. Nothing may be lost, and the command
// that is run again must complete.

#include "SweepFileSystems.h"
#include "support/RunProgram.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <memory>
#include <regex>
#include <sstream>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

/// strace ignores a call with a question mark on processors that do not have it.
constexpr const char* kWriteCalls =
    "openat,write,?pwrite64,?copy_file_range,?sync_file_range,?sync_file_range2,fsync,?fdatasync,ftruncate,?mkdir,"
    "mkdirat,?symlink,symlinkat,?link,linkat,?rename,?renameat,renameat2,?unlink,unlinkat,?rmdir,?chmod,fchmod,"
    "fchmodat,utimensat";

constexpr const char* kNoExchange = "inject=renameat2:error=EINVAL";

enum class Place { SameFileSystem, OtherFileSystem };
enum class Fault { Kill, DiskFull, TwoErrors };

using Words = std::vector<std::string>;

/// A command and what must hold. Paths begin with "near/" or "far/", which are folders on one file system or on two.
struct Scene {
    Words command;
    /// Path to content: bytes, "-> " and the target of a link, or "/" for a folder.
    std::map<std::string, std::string> files;
    std::function<void()> nothingIsLost; ///< at any time
    std::function<void()> isDone;        ///< after a run that reported success
    /// After a run that failed without a kill, and after `failing`, a run that must fail, followed a kill.
    std::function<void()> isConsistent = [] {};
    Words failing{};
    /// The file system cannot exchange names, and the disk is full for the second run too.
    bool poorFileSystem = false;
};

class MaintenanceSweep : public ::testing::TestWithParam<std::tuple<Place, Fault>> {
  protected:
    static void SetUpTestSuite() { fileSystems_ = std::make_unique<SweepFileSystems>(); }
    static void TearDownTestSuite() { fileSystems_.reset(); }

    void SetUp() override {
        if (runProgram({"strace", "-f", "-o", log(), "true"}).status != 0)
            GTEST_SKIP() << "strace is missing, or the kernel lets no process be traced";
        const bool other = std::get<Place>(GetParam()) == Place::OtherFileSystem;
        if (other && fileSystems_->farFolder().empty())
            GTEST_SKIP() << "the kernel forbids mount namespaces, and /dev/shm is on the same file system";
        near_ = fileSystems_->nearFolder() / "near";
        far_ = (other ? fileSystems_->farFolder() : fileSystems_->nearFolder()) / "far";
    }

    std::string log() const { return folder_.at("strace.log"); }

    fs::path at(const std::string& path) const {
        return path.starts_with("near/")  ? near_ / path.substr(5)
               : path.starts_with("far/") ? far_ / path.substr(4)
                                          : fs::path(path);
    }
    Tree tree(const std::string& path) const { return treeOf(at(path)); }
    std::string file(const std::string& path) const { return tree(path)["."]; }

    /// Whether `folder` has, at any depth, an item with this name and content.
    bool isSomewhere(const std::string& folder, const std::string& name, const Tree& content) const {
        for (const auto& entry : fs::recursive_directory_iterator(at(folder))) {
            if (entry.path().filename() == name && treeOf(entry.path()) == content)
                return true;
        }
        return false;
    }

    void setUp(const Scene& scene) const {
        for (const fs::path& each : {near_, far_}) {
            fs::remove_all(each);
            fs::create_directory(each);
        }
        for (const auto& [path, content] : scene.files) {
            if (content == "/")
                fs::create_directories(at(path));
            else if (content.starts_with("-> "))
                folder_.link(at(path), content.substr(3));
            else
                folder_.write(at(path), content);
        }
    }

    /// Runs a command, under strace if there are options for it.
    ProgramRun start(const Words& command, const Words& options = {}) const {
        Words words;
        if (!options.empty())
            words = {"strace", "-f", "-qq", "-o", log()};
        words.insert(words.end(), options.begin(), options.end());
        words.emplace_back(SWEEP_PROGRAM);
        for (const std::string& word : command)
            words.push_back(at(word));
        return runProgram(words);
    }

    /// The calls of an undisturbed run that change something or list a folder, as name and number among the same.
    std::vector<std::pair<std::string, std::string>> callsOf(const Scene& scene) const {
        setUp(scene);
        Words options{"-e", std::string("trace=") + kWriteCalls};
        if (scene.poorFileSystem)
            options.insert(options.end(), {"-e", kNoExchange});
        const ProgramRun run = start(scene.command, options);
        EXPECT_EQ(run.status, 0) << run.err;
        scene.isDone();
        std::vector<std::pair<std::string, std::string>> calls;
        std::map<std::string, int> counts;
        std::istringstream lines(folder_.read("strace.log"));
        const std::regex name(R"(^\d+ +(\w+)\()");
        for (std::string line; std::getline(lines, line);) {
            std::smatch match;
            if (!std::regex_search(line, match, name))
                continue;
            const int number = ++counts[match[1]];
            // Without the other openat calls the program does not start.
            if (match[1] != "openat" || line.find("O_CREAT") != std::string::npos ||
                line.find("O_DIRECTORY") != std::string::npos)
                calls.emplace_back(match[1], std::to_string(number));
        }
        return calls;
    }

    void sweep(const Scene& scene) const {
        const auto calls = callsOf(scene);
        ASSERT_GT(calls.size(), 20U);
        for (const auto& [name, number] : calls) {
            if (std::get<Fault>(GetParam()) == Fault::TwoErrors && name.find("rename") == std::string::npos &&
                name != "rmdir")
                continue; // the second error is to hit the way back
            SCOPED_TRACE(scene.command[0] + ", " + name + " number " + number);
            disturb(scene, name, number);
            const ProgramRun second = start(scene.command);
            ASSERT_EQ(second.status, 0) << second.err;
            scene.nothingIsLost();
            scene.isDone();
            ASSERT_EQ(leftoversIn(near_), Words{});
            ASSERT_EQ(leftoversIn(far_), Words{});
            if (HasFailure())
                return;
        }
    }

    void disturb(const Scene& scene, const std::string& name, const std::string& number) const {
        setUp(scene);
        const bool kill = std::get<Fault>(GetParam()) == Fault::Kill;
        const bool twoErrors = std::get<Fault>(GetParam()) == Fault::TwoErrors;
        const std::string fault = "inject=" + name +
                                  (kill        ? ":signal=KILL"
                                   : twoErrors ? ":error=EIO"
                                               : ":error=ENOSPC") +
                                  ":when=" + number + (twoErrors ? ".." + std::to_string(std::stoi(number) + 1) : "");
        Words options{"-e", "trace=" + name, "-e", fault};
        if (scene.poorFileSystem && name != "renameat2")
            options = {"-e", "trace=renameat2," + name, "-e", kNoExchange, "-e", fault};
        const ProgramRun first = start(scene.command, options);
        ASSERT_EQ(first.status == 128 + SIGKILL, kill) << first.err;
        scene.nothingIsLost();
        if (first.status == 0)
            scene.isDone();
        if (kill && !scene.failing.empty()) {
            ASSERT_EQ(start(scene.failing).status, 2);
            scene.nothingIsLost();
        }
        if (first.err.find("is incomplete, because a replacement failed") != std::string::npos)
            ASSERT_NE(leftoversIn(near_).size() + leftoversIn(far_).size(), 0U) << first.err;
        else if (!kill || !scene.failing.empty())
            scene.isConsistent();
        if (scene.poorFileSystem) {
            start(scene.command, {"-e", "trace=mkdir", "-e", "inject=mkdir:error=ENOSPC"});
            scene.nothingIsLost();
        }
    }

    static std::unique_ptr<SweepFileSystems> fileSystems_;
    TempFolder folder_;
    fs::path near_;
    fs::path far_;
};

std::unique_ptr<SweepFileSystems> MaintenanceSweep::fileSystems_;

const std::string kNew = "near/source/Webster/";

const std::map<std::string, std::string> kNewVersion = {{kNew + "FW", ""},
                                                        {kNew + "ind", "new index"},
                                                        {kNew + "BW", "only the new one has it"},
                                                        {kNew + "mImg/p1.tif", std::string(9000, 'n')},
                                                        {kNew + "mImg/deep/p2.tif", "a new page"},
                                                        {kNew + "mPimg", "-> mImg"}};

std::map<std::string, std::string> newVersionAnd(std::map<std::string, std::string> files) {
    files.insert(kNewVersion.begin(), kNewVersion.end());
    return files;
}

TEST_P(MaintenanceSweep, InstallShowsTheDictionaryWholeOrNotAtAll) {
    const std::string target = "far/Group/Webster";
    sweep({.command = {"install", kNew, "far/Group"},
           .files = newVersionAnd({{"far/Group", "/"}}),
           .nothingIsLost = [&] { ASSERT_TRUE(tree(target).empty() || tree(target) == tree(kNew)); },
           .isDone = [&] { ASSERT_EQ(tree(target), tree(kNew)); }});
}

TEST_P(MaintenanceSweep, ExportKeepsTheOldOneUntilTheNewOneIsWhole) {
    const std::string target = "far/Out/Webster";
    Tree oldOne, newOne;
    Scene scene{.command = {"export", "--replace", kNew, "far/Out"},
                .files = newVersionAnd({{target + "/FW", "old"}, {target + "/mImg/p9.tif", "an old page"}}),
                .nothingIsLost = [&] { ASSERT_TRUE(tree(target) == oldOne || tree(target) == newOne); },
                .isDone = [&] { ASSERT_EQ(tree(target), newOne); }};
    setUp(scene);
    oldOne = tree(target);
    newOne = tree(kNew);
    for (const auto& [path, what] : tree(kNew + "mImg"))
        newOne[path == "." ? "mPimg" : "mPimg/" + path] = what;
    sweep(scene);
}

TEST_P(MaintenanceSweep, ExportWithoutExchangeKeepsTheOldOneUnderOneNameOrTheOther) {
    const std::string target = "far/Out/Webster", other = "far/Out/WEBSTER";
    Tree oldOne;
    Scene scene{
        .command = {"export", "--replace", kNew, "far/Out"},
        .files = {{kNew + "FW", ""}, {kNew + "mImg/p1.tif", "a new page"}, {other + "/FW", "old"}},
        .nothingIsLost = [&] { ASSERT_TRUE(tree(target) == tree(kNew) || isSomewhere("far/Out", "WEBSTER", oldOne)); },
        .isDone =
            [&] {
                ASSERT_EQ(tree(target), tree(kNew));
                ASSERT_EQ(tree(other), Tree{});
            },
        .poorFileSystem = true};
    setUp(scene);
    oldOne = tree(other);
    sweep(scene);
}

TEST_P(MaintenanceSweep, UpdateKeepsEachOldMemberAndNeverMixesTwoVersions) {
    const std::string copy = "near/DictionaryFolder/Group/webster/";
    const Words replaced{"FW", "ind", "mImg", "txt"}, added{"BW", "mPimg"}, kept{"Format", ".hidden"};
    std::map<std::string, Tree> oldMembers;
    Scene scene{.command = {"update", kNew, "near/DictionaryFolder", "far/Desktop"},
                .files = newVersionAnd({{kNew + "txt", "new text"},
                                        {copy + "FW", "old mark"},
                                        {copy + "ind", "old index"},
                                        {copy + "txt", "old text"},
                                        {copy + "mImg/p1.tif", std::string(5000, 'o')},
                                        {copy + "mImg/first", "-> p1.tif"},
                                        {copy + ".hidden", "invisible"},
                                        {copy + "Format", "only the old one has it"},
                                        {"far/Desktop", "/"}}),
                .nothingIsLost =
                    [&] {
                        for (const std::string& member : kept)
                            ASSERT_EQ(tree(copy + member), oldMembers[member]) << member;
                        for (const std::string& member : replaced) {
                            ASSERT_TRUE(isSomewhere(copy, member, oldMembers[member]) ||
                                        isSomewhere("far/Desktop", member, oldMembers[member]))
                                << member;
                            const Tree now = tree(copy + member);
                            ASSERT_TRUE(now.empty() || now == tree(kNew + member) || now == oldMembers[member])
                                << member;
                        }
                        for (const std::string& member : added)
                            ASSERT_TRUE(tree(copy + member).empty() || tree(copy + member) == tree(kNew + member));
                    },
                .isDone =
                    [&] {
                        for (const std::string& member : replaced) {
                            ASSERT_EQ(tree(copy + member), tree(kNew + member)) << member;
                            ASSERT_TRUE(isSomewhere("far/Desktop", member, oldMembers[member])) << member;
                        }
                        for (const std::string& member : added)
                            ASSERT_EQ(tree(copy + member), tree(kNew + member)) << member;
                    },
                .isConsistent =
                    [&] {
                        const bool updated = tree(copy + "ind") == tree(kNew + "ind");
                        for (const char* member : {"ind", "txt", "mImg"})
                            ASSERT_EQ(tree(copy + member), updated ? tree(kNew + member) : oldMembers[member])
                                << member;
                    }};
    setUp(scene);
    for (const Words& members : {replaced, kept}) {
        for (const std::string& member : members)
            oldMembers[member] = tree(copy + member);
    }
    sweep(scene);
}

TEST_P(MaintenanceSweep, UserDictionaryIsTheOldOneOrTheNewOne) {
    const std::map<std::string, std::string> oldPair{{"Text.txt", "old\tx\n"}, {"Index.txt", "OLD\t0\n"}};
    const std::map<std::string, std::string> newPair{{"Text.txt", "new\ty\n"}, {"Index.txt", "NEW\t0\n"}};
    const auto is = [&](const auto& pair) {
        return std::all_of(pair.begin(), pair.end(),
                           [&](const auto& each) { return file("far/Mine/" + each.first) == "file " + each.second; });
    };
    for (const bool kept : {false, true}) {
        const auto command = [&](const std::string& source) {
            return kept ? Words{"keep", source, "far/Mine", "near/Desktop"}
                        : Words{"user-dictionary", "build", "--replace", source, "far/Mine"};
        };
        sweep({.command = command("near/source.txt"),
               .files = {{"near/source.txt", "new\ty\n"},
                         {"near/folder.txt", "/"},
                         {"near/Desktop", "/"},
                         {"far/Mine/Text.txt", oldPair.at("Text.txt")},
                         {"far/Mine/Index.txt", oldPair.at("Index.txt")}},
               .nothingIsLost =
                   [&] {
                       for (const auto& [name, bytes] : oldPair)
                           ASSERT_TRUE((!kept && is(newPair)) ||
                                       isSomewhere("far/Mine", name, {{".", "file " + bytes}}) ||
                                       isSomewhere("near/Desktop", name, {{".", "file " + bytes}}))
                               << name;
                   },
               .isDone =
                   [&] {
                       ASSERT_TRUE(is(newPair));
                       ASSERT_TRUE(!kept || isSomewhere("near/Desktop", "Text.txt", {{".", "file old\tx\n"}}));
                   },
               .isConsistent = [&] { ASSERT_TRUE(is(oldPair) || is(newPair)); },
               .failing = command("near/folder.txt")});
    }
}

/// Corrections change a dictionary as an update does, for which all faults are tried.
class CorrectionSweep : public MaintenanceSweep {};

TEST_P(CorrectionSweep, CorrectedDictionaryIsTheOldOneOrTheNewOne) {
    const std::string copy = "far/DictionaryFolder/Group/Birds/", end = "\U0010FFFD";
    const std::map<std::string, std::string> oldPair{{"ind", "auk\nowl\n" + end},
                                                     {"txt", "<@_a.tif_>\n<@_a.tif_>\n<@_b.tif_>\n"}};
    const std::map<std::string, std::string> newPair{{"ind", "auk\nemu\nowl\n" + end},
                                                     {"txt", "<@_a.tif_>\n<@_b.tif_>\n<@_b.tif_>\n<@_b.tif_>\n"}};
    const auto is = [&](const auto& pair) {
        return std::all_of(pair.begin(), pair.end(),
                           [&](const auto& each) { return file(copy + each.first) == "file " + each.second; });
    };
    sweep({.command = {"correct", copy, "near/Corrections", "near/Desktop"},
           .files = {{copy + "ind", oldPair.at("ind")},
                     {copy + "txt", oldPair.at("txt")},
                     {copy + "mImg/ImageIndex", "1\na.tif\nb.tif\n"},
                     {"near/Desktop", "/"},
                     {"near/Corrections/Group/Birds.tsv",
                      "change\theadword\tpage\twas\npage\towl\tb.tif\ta.tif\nmissing\temu\tb.tif\t\n"}},
           .nothingIsLost =
               [&] {
                   for (const auto& [name, bytes] : oldPair)
                       ASSERT_TRUE(isSomewhere(copy, name, {{".", "file " + bytes}}) ||
                                   isSomewhere("near/Desktop", name, {{".", "file " + bytes}}))
                           << name;
               },
           .isDone = [&] { ASSERT_TRUE(is(newPair)); },
           .isConsistent = [&] { ASSERT_TRUE(is(oldPair) || is(newPair)); }});
}

INSTANTIATE_TEST_SUITE_P(Killed, CorrectionSweep, ::testing::Values(std::tuple(Place::OtherFileSystem, Fault::Kill)));
TEST_P(MaintenanceSweep, NewDictionaryIsWholeOrNotThereAndSoIsItsGroup) {
    const bool newGroup = std::get<Place>(GetParam()) == Place::OtherFileSystem;
    const std::string top = newGroup ? "far/New" : "far/Group/Birds";
    Tree whole;
    Scene scene{.command = {"make", "near/scan", newGroup ? "far/New" : "far/Group", "Birds"},
                .files = {{"near/scan/p1.tif", std::string(9000, 'p')},
                          {"near/scan/p2.tif", "a page"},
                          {"near/scan/e.tif", "errata"},
                          {"far/Group/other", "mine"}},
                .nothingIsLost =
                    [&] {
                        ASSERT_TRUE(tree(top).empty() || tree(top) == whole);
                        ASSERT_EQ(file("far/Group/other"), "file mine");
                    },
                .isDone = [&] { ASSERT_EQ(tree(top), whole); }};
    setUp(scene);
    ASSERT_EQ(start(scene.command).status, 0);
    whole = tree(top);
    ASSERT_EQ(whole[newGroup ? "Birds/About" : "About"], "file Title: Two pages\n");
    sweep(scene);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, MaintenanceSweep,
                         ::testing::Combine(::testing::Values(Place::SameFileSystem, Place::OtherFileSystem),
                                            ::testing::Values(Fault::Kill, Fault::DiskFull, Fault::TwoErrors)));

} // namespace
} // namespace velmarin::test
