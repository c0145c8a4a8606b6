#include "side/UserDictionaryDisplay.h"

#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "side/LookUpText.h"
#include "side/TextArea.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

constexpr std::string_view kBreak = "__BR__";
constexpr std::string_view kDelimiter = "__DLM__";
constexpr std::string_view kTwoLineFeeds = "\n\n";
const QColor kHeadingColour(64, 128, 0);
const QColor kWordColour(0, 0, 128);
const QColor kMeaningColour(0, 0, 0);
constexpr double kWordIsLarger = 6.0;

std::string paragraph(std::string_view text) {
    return std::string(text).append(kTwoLineFeeds);
}

void showHit(std::string_view hit, std::string_view dictionaryName, TextArea& area) {
    const int size = static_cast<int>(area.SelTextSize());
    area.setSelTextColor(kHeadingColour);
    area.setSelText(toQ(userDictionaryHeading(dictionaryName)));

    area.setSelTextColor(kWordColour);
    area.setSelTextSize(area.SelTextSize() + kWordIsLarger);
    area.setSelBold(true);
    area.setSelText(toQ(paragraph(NthField(hit, "\t", 1))));

    area.setSelTextColor(kMeaningColour);
    area.setSelTextSize(size);
    area.setSelBold(false);
    area.setSelText(toQ(paragraph(NthField(hit, "\t", 2))));
}

} // namespace

void mDisplayResult(DictionaryModule& module, std::string_view dictionaryName, bool toPopup, PopupMenu* popup,
                    TextArea* area, Host& host) {
    if (toPopup && popup != nullptr) {
        for (const std::string& hit : module.pResult) {
            popup->AddRow(std::string(NthField(hit, kDelimiter, 1)), std::string(NthField(hit, kDelimiter, 2)));
            host.Yield();
        }
    } else if (area != nullptr) {
        for (std::string& hit : module.pResult) {
            hit = ReplaceAll(hit, kBreak, "\n");
            showHit(hit, dictionaryName, *area);
            host.Yield();
        }
    } else {
        host.MsgBox("DictionaryModule, mDisplayResult: Somthing wrong.");
    }
}

} // namespace velmarin
