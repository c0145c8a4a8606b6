#include "side/SideModel.h"

#include "side/AnswerText.h"
#include "side/MainWindowPort.h"
#include "side/SideDisplay.h"
#include "side/SourceContext.h"
#include "side/SourceTable.h"
#include "side/UserDictionary.h"
#include "side/UserDictionaryMaker.h"
#include "text/NilObjectException.h"

#include <algorithm>
#include <utility>

namespace velmarin {

namespace {

constexpr int kMinimumWidth = 350;
constexpr int kMaximumWidth = 32000;

} // namespace

/// Held while something runs that lets events in. If the model is shut meanwhile, the window lives until its end.
class SideModel::Running {
  public:
    explicit Running(SideModel& model) : model_(model) { ++model_.running_; }
    ~Running() {
        if (--model_.running_ == 0 && model_.shut_)
            model_.display_.release();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    SideModel& model_;
};

/// Shows another target, and at its end the former one, also after an exception.
class SideModel::ShownTarget {
  public:
    ShownTarget(SideModel& model, FindTarget target) : model_(model), before_(model.settings_.target) {
        model_.showTarget(target);
    }
    ~ShownTarget() { model_.setTarget(before_); }
    ShownTarget(const ShownTarget&) = delete;
    ShownTarget& operator=(const ShownTarget&) = delete;

  private:
    SideModel& model_;
    FindTarget before_;
};

SideModel::SideModel(SideDisplay& display, AnswerText& text, MainWindowPort& mainWindow, SideServices services)
    : display_(display), text_(text), mainWindow_(mainWindow), services_(std::move(services)),
      groupFolder_(mainWindow.pDictionaryGroupFolder()),
      wait_(services_.clock, [this](bool shown) { shown ? display_.showWait(waitsFor_) : display_.hideWait(); }) {
    const SourceContext context{.lookUp = *this,
                                .text = text_,
                                .host = services_.host,
                                .busy = services_.busy,
                                .dictionaries = services_.dictionaries,
                                .preferencesFolder = services_.preferencesFolder,
                                .wordsFolder = services_.wordsFolder,
                                .userDictionaries = userDictionaries_};
    for (const SourceRow& source : sourceTable())
        sources_.push_back(source.make(context));
}

SideModel::~SideModel() = default;

void SideModel::open() {
    try {
        mSetPref();
    } catch (const NilObjectException& unreadable) {
        // The file stays as it is: this window saves no settings.
        services_.host.MsgBox(unreadable.what());
        return;
    }
    if (!shut_)
        settingsAtOpening_ = settings();
}

void SideModel::close(int width) {
    if (std::exchange(shut_, true))
        return;
    wait_.stop();
    Event_Close(width);
    if (running_ == 0)
        display_.release();
}

void SideModel::whenFree(const std::function<void()>& action) {
    services_.busy.whenFree([model = std::weak_ptr(self_), action] {
        const auto self = model.lock();
        if (self && !(*self)->shut_)
            action();
    });
}

void SideModel::mDoFind(bool alsoMainWindow) {
    if (shownTarget_ == FindTarget::Find) {
        findStep();
        return;
    }
    if (!services_.busy.busy()) {
        lookUp(word_, alsoMainWindow);
        return;
    }
    if (std::exchange(lookUpIsQueued_, true))
        return;
    whenFree([this, alsoMainWindow] {
        lookUpIsQueued_ = false;
        mDoFind(alsoMainWindow);
    });
}

void SideModel::findStep() {
    const std::optional<TextHit> hit = steps_.step(text_, word_);
    if (hit) {
        text_.select(hit->position - 1, hit->length);
        text_.setSelTextColor(hitColor_);
        // The line of the hit's second character, since the position counts from 1.
        text_.scrollToLineOf(hit->position);
    }
    display_.showMiss(!hit);
}

void SideModel::lookUp(const std::string& word, bool alsoMainWindow) {
    const Busy guard(services_.busy);
    const Running running(*this);
    if (alsoMainWindow) {
        mainWindow_.setSearchText(word);
        mainWindow_.searchAll(word);
    }
    if (word.empty() || shut_)
        return;
    if (!settings_.DontClearCB)
        text_.clearText();
    const int start = text_.textLength();
    for (std::size_t row = 0; row < sources_.size(); ++row)
        if (settings_.sourcesOn[row] && !shut_)
            sources_[row]->lookUp(word);
    text_.scrollToLineOf(start);
}

void SideModel::beginWait(const std::string& program) {
    waitsFor_ = program;
    wait_.begin();
}

bool SideModel::keepWaiting() {
    yield();
    return wait_.mayContinue() && !shut_ && !services_.busy.stopWanted();
}

void SideModel::synchronise(const std::string& query) {
    if (!settings_.SyncronizeCB || shut_)
        return;
    if (services_.busy.busy()) {
        whenFree([this, query] { synchronise(query); });
        return;
    }
    const Running running(*this);
    const ShownTarget shown(*this, FindTarget::LookUp);
    FindEF_TextChange(query);
    display_.showWord(query);
    lookUp(query, false);
}

void SideModel::setTarget(FindTarget target) {
    settings_.target = target;
    showTarget(target);
}

void SideModel::showTarget(FindTarget target) {
    shownTarget_ = target;
    display_.showTarget(target);
}

void SideModel::FindEF_TextChange(const std::string& word) {
    if (word == word_)
        return;
    word_ = word;
    steps_.wordChanged();
    display_.showMiss(false);
}

void SideModel::FindClBV_Action() {
    FindEF_TextChange({});
    display_.showWord({});
    steps_.wordCleared();
    display_.showMiss(false);
}

void SideModel::setHitColor(TextColor color) {
    hitColor_ = color;
    display_.showHitColor(color);
}

void SideModel::setSource(std::size_t row, bool isOn) {
    settings_.sourcesOn[row] = isOn;
    trySource(row);
}

void SideModel::trySource(std::size_t row) {
    if (!settings_.sourcesOn[row])
        return;
    if (services_.busy.busy()) {
        whenFree([this, row] { trySource(row); });
        return;
    }
    const Running running(*this);
    if (sources_[row]->tickedByUser() || shut_)
        return;
    settings_.sourcesOn[row] = false;
    display_.showSource(row, false);
}

void SideModel::mMakeUserDicPU() {
    if (!settings_.sourcesOn[sourceRow("UserDicCB")])
        return;
    const FolderItem folder = groupFolder_.Child(kUserDictionariesFolder);
    if (!folder.Exists())
        return;
    const Busy guard(services_.busy);
    const Running running(*this);
    display_.clearUserDictionaries();
    userDictionaries_.read(
        folder, [this](const std::string& name) { display_.addUserDictionary(name); }, [this] { yield(); });
    display_.chooseUserDictionary(userDictionaries_.chosenRow());
}

void SideModel::UserDicBT_Action() {
    whenFree([this] { mMakeUserDictionary(); });
}

void SideModel::mMakeUserDictionary() {
    const Running running(*this);
    makeUserDictionaryByDialog(groupFolder_, mainWindow_, services_.host, services_.busy, services_.desktop);
}

SubwindowSettings SideModel::settings() const {
    SubwindowSettings settings = settings_;
    settings.userDicRow = userDictionaries_.chosenRow();
    return settings;
}

void SideModel::mSetPref() {
    const auto saved = readSubwindow(groupFolder_);
    if (!saved)
        return;
    settings_ = *saved;
    settings_.width = std::clamp(saved->width, kMinimumWidth, kMaximumWidth);
    display_.showSettings(settings_);
    setTarget(settings_.target);
    if (saved->userDicRow) {
        mMakeUserDicPU();
        userDictionaries_.choose(*saved->userDicRow);
        display_.chooseUserDictionary(userDictionaries_.chosenRow());
    }
    display_.applyTextStyle();
}

void SideModel::Event_Close(int width) {
    // A window that is closed while it reads its settings, or could not read them, has none to save.
    if (!settingsAtOpening_)
        return;
    SubwindowSettings now = settings();
    now.width = width;
    const Result written = writeSubwindow(groupFolder_, now);
    // If nothing was changed, nothing is lost: the next opening gives the same window.
    if (!written && now == *settingsAtOpening_)
        return;
    mainWindow_.noteWritten(subwindowFile(groupFolder_).path().string(), written);
}

} // namespace velmarin
