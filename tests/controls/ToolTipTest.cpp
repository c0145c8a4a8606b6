#include "controls/BevelButton.h"

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

TEST(ToolTips, TellWhatIsCutShortAndWhatTheButtonIsFor) {
    const std::string longRow = "webster_unabridged_1913_page_0123.tif";
    const struct {
        std::string row;
        const char* tip;
        std::string shown;
    } cases[] = {{"p1", "", ""},
                 {"p1", "Go to a page", "Go to a page"},
                 {longRow, "", longRow},
                 {longRow, "Go to a page", longRow + "\nGo to a page"},
                 {"p1", "taken:\rEnglish\r\nLatin", "taken:\nEnglish\nLatin"},
                 {"p1", "Back & forth", "Back & forth"},
                 {"p1", "<b>bold</b>", "<p>&lt;b&gt;bold&lt;/b&gt;</p>"}};
    for (const auto& row : cases) {
        BevelButton button("Page");
        button.resize(80, 16);
        button.setShowsCurrentRow(true);
        button.setRows({row.row});
        button.setMenuValue(0);
        button.setToolTip(row.tip);
        button.show();
        EXPECT_EQ(tipAt(&button, {5, 5}).toStdString(), row.shown);
    }
}

} // namespace
} // namespace velmarin
