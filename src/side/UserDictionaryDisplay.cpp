#include "side/UserDictionaryDisplay.h"

#include "side/AnswerText.h"
#include "text/FindReplace.h"
#include "text/Message.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

constexpr std::string_view kBreak = "__BR__";
constexpr std::string_view kDelimiter = "__DLM__";
constexpr std::string_view kTwoLineFeeds = "\n\n";
constexpr TextColor kHeadingColor{64, 128, 0};
constexpr TextColor kWordColor{0, 0, 128};
constexpr TextColor kMeaningColor{0, 0, 0};
constexpr double kWordIsLarger = 6.0;

std::string paragraph(std::string_view text) {
    return std::string(text).append(kTwoLineFeeds);
}

void showHit(std::string_view hit, std::string_view dictionaryName, AnswerText& area) {
    const int size = static_cast<int>(area.SelTextSize());
    area.setSelTextColor(kHeadingColor);
    area.setSelText("\n✜✜✜✜✜✜✜✜ " + std::string(dictionaryName) + " ✜✜✜✜✜✜✜✜\n\n");

    area.setSelTextColor(kWordColor);
    area.setSelTextSize(area.SelTextSize() + kWordIsLarger);
    area.setSelBold(true);
    area.setSelText(paragraph(NthField(hit, "\t", 1)));

    area.setSelTextColor(kMeaningColor);
    area.setSelTextSize(size);
    area.setSelBold(false);
    area.setSelText(paragraph(NthField(hit, "\t", 2)));
}

} // namespace

void mDisplayResult(DictionaryModule& module, std::string_view dictionaryName, bool toPopup, const AddPopupRow& popup,
                    AnswerText* area, const DictionaryModule::Yield& yield) {
    if (toPopup && popup) {
        for (const std::string& hit : module.pResult) {
            popup(std::string(NthField(hit, kDelimiter, 1)), std::string(NthField(hit, kDelimiter, 2)));
            yield();
        }
    } else if (area != nullptr) {
        for (std::string& hit : module.pResult) {
            hit = ReplaceAll(hit, kBreak, "\n");
            showHit(hit, dictionaryName, *area);
            yield();
        }
    } else {
        MsgBox("DictionaryModule, mDisplayResult: Somthing wrong.");
    }
}

} // namespace velmarin
