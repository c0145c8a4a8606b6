#pragma once

#include "SideFixture.h"
#include "side/AnswerText.h"
#include "side/SideDisplay.h"
#include "text/FindReplace.h"

#include <optional>
#include <string>
#include <vector>

namespace velmarin::test {

/// A text without a widget, whose positions count bytes.
class RecordedText : public AnswerText {
  public:
    std::string text;
    int start = 0, length = 0;
    TextColor color{};
    double size = 12.7;
    bool bold = false;
    /// Each insertion with its style, as "color/size/bold:text".
    std::vector<std::string> inserted;
    std::vector<int> scrolledTo;

    int textLength() const override { return static_cast<int>(text.size()); }
    void clearText() override { assign({}); }
    void assignWithAppended(std::string_view more) override { assign(text + std::string(more)); }
    std::optional<TextHit> findWord(int from, std::string_view word) const override {
        const std::size_t at = InStr(static_cast<std::size_t>(std::max(from, 1)), text, word);
        return word.empty() || at == 0 ? std::nullopt
                                       : std::optional(TextHit{static_cast<int>(at), static_cast<int>(word.size())});
    }
    void select(int from, int count) override { start = from, length = count; }
    void setSelText(std::string_view more) override {
        text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), more);
        start += static_cast<int>(more.size());
        length = 0;
        inserted.push_back(std::to_string(color.red) + "," + std::to_string(color.green) + "," +
                           std::to_string(color.blue) + "/" + std::to_string(size).substr(0, 4) +
                           (bold ? "/bold:" : "/plain:") + std::string(more));
    }
    void setSelTextColor(TextColor given) override { color = given; }
    void clearSelTextColor() override { color = {}; }
    double SelTextSize() const override { return size; }
    void setSelTextSize(double points) override { size = points; }
    void setSelBold(bool given) override { bold = given; }
    void scrollToLineOf(int position) override { scrolledTo.push_back(position); }

  private:
    void assign(std::string given) {
        text = std::move(given);
        select(textLength(), 0);
    }
};

/// Records what it is told.
class RecordedDisplay : public SideDisplay {
  public:
    std::optional<SubwindowSettings> settings;
    bool textStyleApplied = false;
    std::vector<FindTarget> targets;
    std::string word;
    bool missed = false;
    TextColor hitColor;
    std::vector<std::string> userDictionaries;
    int userDictionary = -1;
    std::vector<bool> sourcesOn = SubwindowSettings().sourcesOn;
    bool waits = false;
    int released = 0;

    void showSettings(const SubwindowSettings& shown) override { settings = shown; }
    void applyTextStyle() override { textStyleApplied = true; }
    void showSource(std::size_t row, bool isOn) override { sourcesOn[row] = isOn; }
    void showTarget(FindTarget target) override { targets.push_back(target); }
    void showWord(const std::string& shown) override { word = shown; }
    void showMiss(bool miss) override { missed = miss; }
    void showHitColor(TextColor color) override { hitColor = color; }
    void clearUserDictionaries() override { userDictionaries.clear(); }
    void addUserDictionary(const std::string& name) override { userDictionaries.push_back(name); }
    void chooseUserDictionary(int row) override { userDictionary = row; }
    void showWait(const std::string&) override { waits = true; }
    void hideWait() override { waits = false; }
    void release() override { ++released; }
};

/// The rows of the source table.
enum Source : std::size_t { Service, Latin, User };

/// A model with its settings read.
class ModelFixture : public SideFixture {
  public:
    SideModel& open() {
        model.emplace(display, text, main, services());
        model->open();
        return *model;
    }
    /// A model whose Return key looks words up in these sources, by their first letters.
    SideModel& openForLookUp(std::string_view sources = "S") {
        SubwindowSettings settings;
        settings.target = FindTarget::LookUp;
        for (const Source source : {Service, Latin, User})
            settings.sourcesOn[source] = sources.find("SLU"[source]) != std::string_view::npos;
        settings.userDicRow = 0;
        groupFolder.write("Subwindow", subwindowText(settings));
        return open();
    }
    /// Types the word and presses Return.
    void ask(const std::string& word) {
        model->FindEF_TextChange(word);
        model->FindBV_Action();
    }

    RecordedText text;
    RecordedDisplay display;
    std::optional<SideModel> model;
};

} // namespace velmarin::test
