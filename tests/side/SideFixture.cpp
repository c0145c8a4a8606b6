#include "SideFixture.h"

#include "DictdFixture.h"
#include "controls/QtText.h"
#include "side/UserDictionary.h"

#include <QApplication>
#include <QTest>

#include <filesystem>

namespace velmarin::test {

namespace fs = std::filesystem;

const char* const kAmorBlock = "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nlat\n\nlove\n\n";

SideFixture::SideFixture() {
    main.group = FolderItem(groupFolder.path());
    DictdFixture().entry("amor", "love").writeTo(dictd, "lat");
    // No control is under the pointer unless a test moves it there.
    QCursor::setPos(0, 0);
}

SideFixture::~SideFixture() {
    delete side_;
}

SubWindow& SideFixture::open(Hanging hanging) {
    main.frame.show();
    side_ = new SubWindow(main,
                          SideServices{.host = host,
                                       .busy = busy,
                                       .preferencesFolder = FolderItem(preferences.path()),
                                       .dictionaries = DictionaryService(FolderItem(dictd.path())),
                                       .wordsFolder = words.path().string() + "/",
                                       .selectColor =
                                           [this](const QColor&) {
                                               return nextColour.isValid() ? std::optional(nextColour) : std::nullopt;
                                           },
                                       .clock = [this] { return now; }},
                          hanging);
    side_->open();
    return *side_;
}

SubWindow& SideFixture::openForLookUp() {
    open().findBar().setTarget(FindTarget::DicApp);
    return *side_;
}

SubWindow& SideFixture::reopen() {
    const Hanging hanging = side_->hanging();
    side_->shut();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return open(hanging);
}

void SideFixture::installWords(const std::string& script) const {
    fs::permissions(words.write("words", "#!/bin/sh\n" + script), fs::perms::owner_all);
}

void SideFixture::addUserDictionary(const std::string& name, const std::string& source) const {
    const fs::path folder = groupFolder.path() / "UserDictionaries" / name;
    fs::create_directories(folder);
    SilentProgress progress;
    const TempFolder data;
    const BuildResult result = buildUserDictionary(FolderItem(data.write("source", source)), FolderItem(folder),
                                                   progress, EarlierPair::Refused);
    if (!result.ok)
        throw std::runtime_error(result.reason);
}

void SideFixture::useUserDictionary(int row) {
    if (!control<QCheckBox>("UserDicCB").isChecked())
        control<QCheckBox>("UserDicCB").click();
    side_->mMakeUserDicPU();
    control<PopupMenu>("UserDicPU").setListIndex(row);
}

std::string SideFixture::text() {
    return fromQ(EF().Text());
}

void SideFixture::ask(const QString& word) {
    FindEF().setText(word);
    QTest::keyClick(&FindEF(), Qt::Key_Return);
}

void SideFixture::runPosted() {
    while (!posted.empty()) {
        const BusyState::Action action = std::move(posted.front());
        posted.erase(posted.begin());
        action();
    }
}

} // namespace velmarin::test
