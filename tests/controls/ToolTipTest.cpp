#include "controls/BevelButton.h"
#include "controls/ListBox.h"
#include "controls/PlainToolTip.h"
#include "controls/PopupMenu.h"
#include "controls/SmallTabBar.h"
#include "controls/TabPanel.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

/// What appears when the pointer rests on a place of a shown widget.
QString tipAt(QWidget* widget, const QPoint& place) {
    QToolTip::hideText();
    QHelpEvent rest(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &rest);
    return QToolTip::text();
}

struct TipCase {
    const char* name;
    QString row;
    QString tip;
    QString shown;
};

class ButtonTips : public ::testing::TestWithParam<TipCase> {};

TEST_P(ButtonTips, TellWhatIsCutShortAndWhatTheButtonIsFor) {
    BevelButton button("Page");
    button.resize(80, 16);
    button.setShowsCurrentRow(true);
    button.setRows({GetParam().row.toStdString()});
    button.setMenuValue(0);
    button.setToolTip(GetParam().tip);
    button.show();
    EXPECT_EQ(tipAt(&button, {5, 5}).toStdString(), GetParam().shown.toStdString());
}

const QString longRow = "webster_unabridged_1913_page_0123.tif";

INSTANTIATE_TEST_SUITE_P(
    Controls, ButtonTips,
    ::testing::Values(TipCase{"ShortRow", "p1", "", ""},
                      TipCase{"ShortRowWithTip", "p1", "Go to a page", "Go to a page"},
                      TipCase{"LongRow", longRow, "", longRow},
                      TipCase{"LongRowWithTip", longRow, "Go to a page", longRow + "\nGo to a page"},
                      TipCase{"LineEnds", "p1", "taken:\rEnglish\r\nLatin", "taken:\nEnglish\nLatin"},
                      TipCase{"Ampersand", "p1", "Back & forth", "Back & forth"}),
    [](const auto& info) { return info.param.name; });

TEST(ToolTips, MarkupIsShownAsText) {
    BevelButton button("Page");
    button.resize(80, 16);
    button.setToolTip("<b>bold</b>");
    button.show();
    EXPECT_TRUE(tipAt(&button, {5, 5}).contains("&lt;b&gt;"));
}

} // namespace
} // namespace velmarin
